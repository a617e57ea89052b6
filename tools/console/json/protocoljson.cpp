// SPDX-License-Identifier: MIT
#include "json/protocoljson.h"

#include "backend/wire/json.h"
#include "state/colorscheme.h"
#include "state/loadingstatename.h"
#include "state/sdkdata.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <array>

namespace tolvane::console {

namespace {

template <Record T>
QJsonValue toJson(const T &record)
{
    return QJsonDocument::fromJson(json::encode(record)).object();
}

QJsonValue toJson(const TicketsData::Tickets &tickets)
{
    QJsonArray list;
    for (const TicketPreviewDto &preview : tickets)
        list.append(toJson(preview));
    return list;
}

template <typename T>
QJsonValue toJsonOrNull(const std::optional<T> &value)
{
    return value ? toJson(*value) : QJsonValue();
}

QJsonValue errorText(const ErrorPtr &error)
{
    return error ? QJsonValue(error->localizedDescription()) : QJsonValue();
}

} // namespace

QJsonValue textOrNull(const std::optional<QString> &text)
{
    return text ? QJsonValue(*text) : QJsonValue();
}

QJsonObject eventToJson(const TolvaneAnalyticsEvent &event)
{
    return {{QStringLiteral("name"), event.name()},
            {QStringLiteral("properties"), QJsonObject::fromVariantMap(event.properties())},
            {QStringLiteral("timestamp"), event.timestamp().toString(Qt::ISODateWithMs)},
            {QStringLiteral("sdkVersion"), event.sdkVersion()},
            {QStringLiteral("customerId"), textOrNull(event.customerId())},
            {QStringLiteral("originalCustomerId"), textOrNull(event.originalCustomerId())},
            {QStringLiteral("environment"), event.environment()}};
}

QJsonValue userInfoToJson(const NotificationCenter::UserInfo &userInfo)
{
    const auto dictionary = userInfo.dictionary();
    if (!dictionary)
        return {};
    QJsonObject object = QJsonObject::fromVariantMap(*dictionary);
    // For a sent reply, didSendMessage carries the MessageDto itself instead of a dictionary.
    for (auto entry = dictionary->cbegin(); entry != dictionary->cend(); ++entry) {
        if (entry->typeId() == qMetaTypeId<MessageDto>())
            object.insert(entry.key(), toJson(entry->value<MessageDto>()));
    }
    return object;
}

QJsonObject settingsToJson()
{
    const ColorScheme &scheme = ColorScheme::shared();
    QJsonObject colors;
    for (const BrandingColor &entry : brandingColors) {
        const DynamicColor &color = scheme.*entry.color;
        colors.insert(QLatin1String(entry.name),
                      QJsonObject{{QStringLiteral("light"), color.light.name()},
                                  {QStringLiteral("dark"), color.dark.name()}});
    }
    return {{QStringLiteral("settingsDidLoad"), SdkData::shared()->settingsDidLoad()},
            {QStringLiteral("isOpen"), SdkData::shared()->isOpen()},
            {QStringLiteral("colors"), colors},
            {QStringLiteral("logoLight"), textOrNull(scheme.logoLight)},
            {QStringLiteral("logoDark"), textOrNull(scheme.logoDark)}};
}

QJsonObject ticketsToJson(const TicketsData &tickets)
{
    return {{QStringLiteral("state"), caseName(tickets.state())},
            {QStringLiteral("value"), toJsonOrNull(tickets.state().value())},
            {QStringLiteral("error"), errorText(tickets.state().failure())},
            {QStringLiteral("lastValue"), toJsonOrNull(tickets.lastValue())}};
}

QJsonObject ticketToJson(const TicketData &ticket)
{
    return {{QStringLiteral("state"), caseName(ticket.state())},
            {QStringLiteral("isFetchingTicket"), ticket.isFetchingTicket()},
            {QStringLiteral("isSendingMessage"), ticket.isSendingMessage()},
            {QStringLiteral("newTicket"), ticket.newTicket()},
            {QStringLiteral("message"), ticket.message()},
            {QStringLiteral("attachmentCount"), ticket.attachments().size()},
            {QStringLiteral("ticketId"), textOrNull(ticket.ticketId())},
            {QStringLiteral("isSendDisabled"), ticket.isSendDisabled()},
            {QStringLiteral("isAITyping"), ticket.isAITyping()},
            {QStringLiteral("hasAttemptedFetch"), ticket.hasAttemptedFetch()},
            {QStringLiteral("fetchError"), errorText(ticket.fetchError())},
            {QStringLiteral("sendError"), errorText(ticket.sendError())},
            {QStringLiteral("preview"), toJsonOrNull(ticket.preview())},
            {QStringLiteral("ticket"), toJsonOrNull(ticket.ticket())}};
}

} // namespace tolvane::console
