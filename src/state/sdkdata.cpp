// SPDX-License-Identifier: MIT
#include "state/sdkdata.h"

#include "analytics/manager.h"
#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "backend/persistentstore.h"
#include "base/sharedinstance.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/colorscheme.h"
#include "state/notifications.h"

namespace tolvane {

namespace {

/// Stores a received branding and returns the stored one.
std::optional<BrandingDto> storeAndReload(const std::optional<BrandingDto> &received)
{
    if (received)
        persistentstore::setBranding(received);
    return persistentstore::branding();
}

QCoro::Task<std::optional<BrandingDto>> loadBranding()
{
    Executor &workers = *platform().workers;
    const auto stored = co_await awaitFuture(workers.run(persistentstore::branding));
    std::optional<QString> updatedAt;
    if (stored)
        updatedAt = stored->updatedAt;
    const APIClient client = APIClient::live();
    const auto received = co_await client.getBranding(updatedAt);
    auto current = workers.run([received] { return storeAndReload(received); });
    co_return co_await awaitFuture(current);
}

} // namespace

const std::shared_ptr<SdkData> &SdkData::shared()
{
    return sharedInstance<SdkData>();
}

SdkData::SdkData()
{
    m_stateObservation = platform().notificationCenter->observe(
        notifications::didChangeState, NotificationCenter::Delivery::mainThread,
        // The observation is destroyed with this store, so the callback cannot outlive it.
        [this](const NotificationCenter::UserInfo &userInfo) { onStateChange(userInfo); });
}

void SdkData::onStateChange(const NotificationCenter::UserInfo &userInfo)
{
    const QVariantMap dictionary = userInfo.dictionary().value_or(QVariantMap());
    const QVariant open = dictionary.value(QStringLiteral("open"));
    if (open.typeId() != QMetaType::Bool || open.toBool() == m_isOpen)
        return;
    m_isOpen = open.toBool();
    Q_EMIT changed();
}

QCoro::Task<> SdkData::fetchSettings()
{
    const auto self = shared_from_this();
    m_isFetchingSettings = true;
    Q_EMIT changed();
    try {
        const auto branding = co_await loadBranding();
        if (branding)
            ColorScheme::shared().update(*branding);
        m_settingsDidLoad = true;
        m_settingsError = nullptr;
        TolvaneAnalyticsManager::shared().track(
            TolvaneAnalyticsEvent::Lifecycle::fetchedSettings,
            {{TolvaneAnalyticsEvent::PropertyKeys::actionType, QStringLiteral("lifecycle")}});
    } catch (...) {
        m_settingsError = currentError();
        reportFailure(QStringLiteral("Error fetching styling: "), QStringLiteral("fetchSettings"),
                      *m_settingsError);
    }
    m_isFetchingSettings = false;
    Q_EMIT changed();
}

} // namespace tolvane
