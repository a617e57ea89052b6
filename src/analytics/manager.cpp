// SPDX-License-Identifier: MIT
#include "analytics/manager.h"

#include "backend/configuration.h"
#include "backend/persistentstore.h"
#include "backend/wire/json.h"
#include "base/invokenoexcept.h"
#include "base/sharedinstance.h"
#include "platform/logger.h"
#include "platform/platform.h"

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

void TolvaneAnalyticsManager::setDelegate(const Receiver &delegate)
{
    const std::scoped_lock lock(m_mutex);
    m_delegate = delegate;
}

void TolvaneAnalyticsManager::addObserver(const Receiver &observer)
{
    const std::scoped_lock lock(m_mutex);
    std::erase_if(m_observers, [](const auto &known) { return known.expired(); });
    m_observers.push_back(observer);
}

std::vector<TolvaneAnalyticsManager::Receiver> TolvaneAnalyticsManager::receivers() const
{
    const std::scoped_lock lock(m_mutex);
    std::vector<Receiver> receivers = {m_delegate.lock()};
    for (const auto &observer : m_observers)
        receivers.push_back(observer.lock());
    std::erase(receivers, nullptr);
    return receivers;
}

void TolvaneAnalyticsManager::track(const QString &name, QVariantMap properties)
{
    // Keeps the receivers alive: one may destroy itself during a call.
    const auto receivers = this->receivers();
    const bool isLogged = Logger::shared().isEnabled();
    // Creating an event reads the disk, which is pointless without a receiver.
    if (!m_isEnabled || (receivers.empty() && !isLogged))
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
    for (const Receiver &receiver : receivers)
        invokeNoexcept("the analytics delegate", [&] { receiver->didReceiveEvent(event); });
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
