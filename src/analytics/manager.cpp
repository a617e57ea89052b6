// SPDX-License-Identifier: MIT
#include "analytics/manager.h"

#include "backend/json.h"
#include "core/configuration.h"
#include "core/logger.h"
#include "core/persistentstore.h"
#include "platform/guard.h"
#include "platform/platform.h"
#include "platform/shared.h"

namespace tolvane {

using Keys = TolvaneAnalyticsEvent::PropertyKeys;

namespace {

QString errorEventName(const Error &error)
{
    if (error.domain().contains(QLatin1String("NSURLError")))
        return TolvaneAnalyticsEvent::Errors::networkError;
    if (error.localizedDescription().toLower().contains(QLatin1String("configuration")))
        return TolvaneAnalyticsEvent::Errors::configurationError;
    return TolvaneAnalyticsEvent::Errors::apiError;
}

} // namespace

TolvaneAnalyticsManager &TolvaneAnalyticsManager::shared()
{
    return *sharedInstance<TolvaneAnalyticsManager>();
}

TolvaneAnalyticsManager::TolvaneAnalyticsManager()
    : m_sdkVersion(platform().bundle->hostVersion().value_or(QStringLiteral("0.1.0")))
{
}

void TolvaneAnalyticsManager::setDelegate(const std::shared_ptr<TolvaneAnalyticsDelegate> &delegate)
{
    const std::scoped_lock lock(m_mutex);
    m_delegate = delegate;
}

std::shared_ptr<TolvaneAnalyticsDelegate> TolvaneAnalyticsManager::delegate() const
{
    const std::scoped_lock lock(m_mutex);
    return m_delegate.lock();
}

void TolvaneAnalyticsManager::track(const QString &name, QVariantMap properties)
{
    // Held for the call: the delegate may let go of itself in it.
    const auto receiver = delegate();
    const bool isLogged = Logger::shared().isEnabled();
    // Making an event takes a look at the disk; there has to be somebody who hears of it.
    if (!m_isEnabled || (!receiver && !isLogged))
        return;
    properties.insert(Keys::deviceModel, platform().device->model());
    properties.insert(Keys::osVersion, platform().device->systemVersion());
    const TolvaneAnalyticsEvent event(name, properties, platform().clock->now(), m_sdkVersion,
                                      persistentstore::customerId(),
                                      persistentstore::customerOriginalId(),
                                      Tolvane::rawValue(Configuration::shared().environment()));
    if (isLogged) {
        Logger::shared().log(LogLevel::info, QStringLiteral("Analytics event: ") + name +
                                                 QStringLiteral(" with properties: ") +
                                                 json::text(properties));
    }
    if (receiver)
        guarded("the analytics delegate", [&] { receiver->didReceiveEvent(event); });
}

void TolvaneAnalyticsManager::trackError(const QString &context, QVariantMap properties,
                                         const Error &error)
{
    properties.insert(Keys::errorMessage, error.localizedDescription());
    properties.insert(Keys::errorCode, error.code());
    properties.insert(Keys::errorDomain, error.domain());
    if (!context.isEmpty())
        properties.insert(QStringLiteral("error_context"), context);
    track(errorEventName(error), std::move(properties));
}

void TolvaneAnalyticsManager::trackUserAction(const QString &action, const QString &screen,
                                              QVariantMap properties)
{
    properties.insert(Keys::screenName, screen);
    properties.insert(Keys::actionType, action);
    track(QStringLiteral("user_action"), std::move(properties));
}

} // namespace tolvane
