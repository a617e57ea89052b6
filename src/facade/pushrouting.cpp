// SPDX-License-Identifier: MIT
#include "facade/pushrouting.h"

#include "analytics/manager.h"
#include "backend/apiclient.h"
#include "backend/persistentstore.h"
#include "backend/wire/json.h"
#include "platform/async/awaitfuture.h"
#include "platform/logger.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "state/sdkdata.h"

namespace tolvane::pushrouting {

using Keys = TolvaneAnalyticsEvent::PropertyKeys;

namespace {

void logInfo(const QString &message)
{
    Logger::shared().log(LogLevel::info, message);
}

void trackNotification(const QString &name, const QString &source)
{
    TolvaneAnalyticsManager::shared().track(
        name,
        {{Keys::notificationSource, source}, {Keys::actionType, QStringLiteral("notification")}});
}

QCoro::Task<> updateDevice(QString token)
{
    try {
        const APIClient client = APIClient::live();
        const UpdateDeviceDto device{.originalId = persistentstore::customerOriginalId(),
                                     .deviceToken = token};
        co_await client.updateDevice(device);
    } catch (...) {
        TolvaneAnalyticsManager::shared().trackError(QStringLiteral("setDeviceToken"), {},
                                                     *currentError());
    }
}

std::optional<QVariantMap> dictionaryAt(const QVariantMap &payload, const QString &key)
{
    const QVariant value = payload.value(key);
    if (value.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return value.toMap();
}

std::optional<QString> textAt(const QVariantMap &dictionary, const QString &key)
{
    const QVariant value = dictionary.value(key);
    if (value.typeId() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

void deliverMessage(const QVariantMap &message)
{
    const auto id = textAt(message, QStringLiteral("id"));
    const auto ticketId = textAt(message, QStringLiteral("ticketId"));
    if (id && ticketId) {
        TolvaneAnalyticsManager::shared().track(
            TolvaneAnalyticsEvent::Chat::messageReceived,
            {{QStringLiteral("source"), QStringLiteral("push_notification")},
             {Keys::ticketId, *ticketId},
             {Keys::messageId, *id}});
    }
    platform().notificationCenter->post(
        notifications::didReceiveMessage,
        UserInfo::fromDictionary<MessageDto>(message, json::decode<MessageDto>));
}

} // namespace

bool isTolvanePush(const QVariantMap &payload)
{
    return textAt(payload, QStringLiteral("source")) == QStringLiteral("tolvane");
}

void registerDevice(const QByteArray &deviceToken)
{
    const QString token = QString::fromLatin1(deviceToken.toHex());
    logInfo(QStringLiteral("Device token: ") + token);
    TolvaneAnalyticsManager::shared().track(TolvaneAnalyticsEvent::Lifecycle::deviceTokenSet,
                                            {{Keys::actionType, QStringLiteral("lifecycle")}});
    platform().mainThread->post([token] { detach(updateDevice(token)); });
}

PresentationOptions willPresent(const QVariantMap &payload)
{
    if (!isTolvanePush(payload))
        return PresentationOptions::none;
    logInfo(QStringLiteral("Will present notification"));
    trackNotification(TolvaneAnalyticsEvent::Notifications::pushReceived,
                      QStringLiteral("willPresent"));
    if (!SdkData::shared()->isOpen()) {
        logInfo(QStringLiteral("SDK is closed - presenting notification with sound and banner"));
        return PresentationOptions::soundAndBanner;
    }
    logInfo(QStringLiteral("SDK is open - presenting notification with sound only"));
    handle(payload);
    return PresentationOptions::sound;
}

void handle(const QVariantMap &payload)
{
    if (!isTolvanePush(payload))
        return;
    if (Logger::shared().isEnabled())
        logInfo(QStringLiteral("Handle push notification: ") + json::text(payload));
    trackNotification(TolvaneAnalyticsEvent::Notifications::pushTapped,
                      QStringLiteral("handlePush"));
    if (!SdkData::shared()->isOpen())
        Tolvane::open();
    if (const auto message = dictionaryAt(payload, QStringLiteral("message")))
        deliverMessage(*message);
    else if (const auto preview = dictionaryAt(payload, QStringLiteral("ticketPreview")))
        platform().notificationCenter->post(
            notifications::didReceiveStateUpdate,
            UserInfo::fromDictionary<TicketPreviewDto>(*preview, json::decode<TicketPreviewDto>));
}

} // namespace tolvane::pushrouting
