// SPDX-License-Identifier: MIT
#include "json/commands.h"

#include "backend/persistentstore.h"
#include "host/attachments.h"
#include "json/protocoljson.h"
#include "platform/async/awaitfuture.h"
#include "state/pollingservice.h"
#include "state/sdkdata.h"
#include "state/times/timeago.h"

#include <tolvane/tolvane.h>

#include <algorithm>
#include <array>

namespace tolvane::console {

namespace {

using Reply = QCoro::Task<QJsonObject>;

QJsonObject result(const char *key, const QJsonValue &value)
{
    return {{QLatin1String(key), value}};
}

std::shared_ptr<TicketData> ticketOf(const Host &host, const Arguments &arguments)
{
    const int handle = arguments.number("ticket");
    auto ticket = host.ticket(handle);
    if (!ticket)
        throw CommandError(QStringLiteral("There is no open ticket %1").arg(handle));
    return ticket;
}

Reply initialize(Host &, Arguments arguments)
{
    Tolvane::initialize(arguments.text("key"));
    co_return {};
}

Reply setEnvironment(Host &, Arguments arguments)
{
    const QString name = arguments.text("environment");
    const auto environment = Tolvane::environmentFromRawValue(name);
    if (!environment)
        throw CommandError(QStringLiteral("There is no environment \"%1\"").arg(name));
    Tolvane::setEnvironment(*environment);
    co_return {};
}

Reply enableLogging(Host &, Arguments arguments)
{
    Tolvane::enableLogging(arguments.boolean("enabled"));
    co_return {};
}

Reply setAnalyticsDelegate(Host &host, Arguments arguments)
{
    host.setAnalyticsDelegate(arguments.boolean("enabled"));
    co_return {};
}

Reply updateCustomer(Host &, Arguments arguments)
{
    const auto email = arguments.optionalText("email");
    const auto originalId = arguments.optionalText("originalID");
    QFuture<void> done = Tolvane::updateCustomer(email, originalId);
    co_await awaitFuture(done);
    co_return {};
}

Reply setDeviceToken(Host &, Arguments arguments)
{
    const auto isDigit = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
    const QByteArray hex = arguments.text("hex").toUtf8();
    if (hex.size() % 2 != 0 || !std::ranges::all_of(hex, isDigit))
        throw CommandError(QStringLiteral("\"hex\" must be pairs of hexadecimal digits"));
    Tolvane::setDeviceToken(QByteArray::fromHex(hex));
    co_return {};
}

Reply isTolvanePushNotification(Host &, Arguments arguments)
{
    co_return result(
        "result", Tolvane::isTolvanePushNotification(arguments.object("payload").toVariantMap()));
}

Reply willPresentNotification(Host &, Arguments arguments)
{
    const PresentationOptions options =
        Tolvane::willPresentNotification(arguments.object("payload").toVariantMap());
    co_return result("result", static_cast<int>(options));
}

Reply handlePushNotification(Host &, Arguments arguments)
{
    Tolvane::handlePushNotification(arguments.object("payload").toVariantMap());
    co_return {};
}

Reply open(Host &, Arguments)
{
    Tolvane::open();
    co_return {};
}

Reply setOpen(Host &, Arguments arguments)
{
    Host::setOpen(arguments.boolean("open"));
    co_return {};
}

Reply customer(Host &, Arguments)
{
    QJsonObject ids = result("customerId", textOrNull(persistentstore::customerId()));
    ids.insert(QStringLiteral("originalCustomerId"),
               textOrNull(persistentstore::customerOriginalId()));
    co_return ids;
}

Reply settings(Host &, Arguments)
{
    co_return settingsToJson();
}

Reply fetchSettings(Host &, Arguments)
{
    co_await SdkData::shared()->fetchSettings();
    co_return {};
}

template <QCoro::Task<> (TicketsData::*operation)()>
Reply onTickets(Host &host, Arguments)
{
    std::shared_ptr<TicketsData> tickets = host.tickets(); // Keeps it alive across the co_await.
    co_await (*tickets.*operation)();
    co_return {};
}

Reply ticketsState(Host &host, Arguments)
{
    co_return ticketsToJson(*host.tickets());
}

Reply openTicket(Host &host, Arguments arguments)
{
    const QString id = arguments.text("ticketId");
    const auto row = host.row(id);
    if (!row)
        throw CommandError(QStringLiteral("The list has no ticket \"%1\"").arg(id));
    co_return result("ticket", host.open(row));
}

Reply newTicket(Host &host, Arguments)
{
    const int handle = host.open(std::nullopt);
    host.ticket(handle)->setNewTicket(true);
    co_return result("ticket", handle);
}

Reply fetchTicket(Host &host, Arguments arguments)
{
    const auto ticket = ticketOf(host, arguments);
    co_await ticket->fetchTicket();
    co_return {};
}

Reply silentFetchTicket(Host &host, Arguments arguments)
{
    const auto ticket = ticketOf(host, arguments);
    co_await ticket->silentFetchTicket();
    co_return {};
}

Reply compose(Host &host, Arguments arguments)
{
    const auto ticket = ticketOf(host, arguments);
    const auto message = arguments.optionalText("message");
    const auto files = arguments.optionalList("attachments");
    QList<AttachmentDto> attachments;
    const QJsonArray given = files.value_or(QJsonArray());
    for (const auto file : given)
        attachments.append(attachmentFromJson(file.toObject()));
    // All arguments are checked before the first change: a rejected request changes nothing.
    if (message)
        ticket->setMessage(*message);
    if (files)
        ticket->setAttachments(attachments);
    co_return {};
}

template <QCoro::Task<> (TicketData::*operation)()>
Reply onTicket(Host &host, Arguments arguments)
{
    const auto ticket = ticketOf(host, arguments);
    co_await (*ticket.*operation)();
    co_return {};
}

Reply ticketState(Host &host, Arguments arguments)
{
    co_return ticketToJson(*ticketOf(host, arguments));
}

Reply closeTicket(Host &host, Arguments arguments)
{
    ticketOf(host, arguments); // Throws for a handle that is not open.
    host.close(arguments.number("ticket"));
    co_return {};
}

Reply polling(Host &, Arguments)
{
    QFuture<QList<QString>> active = PollingService::shared()->activeTickets();
    QList<QString> ids = co_await awaitFuture(active);
    ids.sort();
    co_return result("active", QJsonArray::fromStringList(ids));
}

Reply timeAgo(Host &, Arguments arguments)
{
    co_return result("text", timeAgoText(arguments.text("timestamp")));
}

constexpr std::array commands = {
    Command{"initialize", false, initialize},
    Command{"setEnvironment", false, setEnvironment},
    Command{"enableLogging", false, enableLogging},
    Command{"setAnalyticsDelegate", false, setAnalyticsDelegate},
    Command{"updateCustomer", true, updateCustomer},
    Command{"setDeviceToken", true, setDeviceToken},
    Command{"isTolvanePushNotification", false, isTolvanePushNotification},
    Command{"willPresentNotification", true, willPresentNotification},
    Command{"handlePushNotification", true, handlePushNotification},
    Command{"open", true, open},
    Command{"setOpen", false, setOpen},
    Command{"customer", false, customer},
    Command{"settings", false, settings},
    Command{"settings.fetch", true, fetchSettings},
    Command{"tickets.load", true, onTickets<&TicketsData::load>},
    Command{"tickets.reload", true, onTickets<&TicketsData::reload>},
    Command{"tickets.silentReload", true, onTickets<&TicketsData::silentReload>},
    Command{"tickets.state", false, ticketsState},
    Command{"ticket.open", false, openTicket},
    Command{"ticket.new", false, newTicket},
    Command{"ticket.fetch", true, fetchTicket},
    Command{"ticket.silentFetch", true, silentFetchTicket},
    Command{"ticket.compose", false, compose},
    Command{"ticket.create", true, onTicket<&TicketData::createTicket>},
    Command{"ticket.send", true, onTicket<&TicketData::sendMessage>},
    Command{"ticket.state", false, ticketState},
    Command{"ticket.close", false, closeTicket},
    Command{"polling", false, polling},
    Command{"timeAgo", false, timeAgo},
};

} // namespace

const Command *findCommand(const QString &name)
{
    const auto found = std::ranges::find_if(
        commands, [&name](const Command &command) { return name == QLatin1String(command.name); });
    return found == commands.end() ? nullptr : &*found;
}

} // namespace tolvane::console
