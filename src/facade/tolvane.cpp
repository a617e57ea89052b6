// SPDX-License-Identifier: MIT
#include "analytics/manager.h"
#include "backend/configuration.h"
#include "backend/endpoint.h"
#include "backend/persistentstore.h"
#include "base/invokenoexcept.h"
#include "base/sharedinstance.h"
#include "base/ulid.h"
#include "facade/conversations.h"
#include "facade/customerupdate.h"
#include "facade/pushrouting.h"
#include "platform/async/awaitfuture.h"
#include "platform/logger.h"
#include "platform/platform.h"
#include "state/hostoptions.h"
#include "state/navigation/conversationrequest.h"
#include "state/sdkdata.h"
#include "state/unreadtickets.h"

#include <tolvane/tolvane.h>
#include <tolvane/version.h>

#include <QtCore/QPointer>

#include <array>
#include <memory>

namespace tolvane {

using Keys = TolvaneAnalyticsEvent::PropertyKeys;

namespace {

// Indexed by Tolvane::Environment.
constexpr std::array environmentNames = {"production", "development", "alpha"};

const QString notInitialized = QStringLiteral("Tolvane is not initialized");

bool isInitialized()
{
    return Configuration::shared().apiKey().has_value();
}

bool hasApplication()
{
    if (QCoreApplication::instance())
        return true;
    Logger::shared().reportMisuse(
        QStringLiteral("Tolvane was called before the application object was created"));
    return false;
}

/// Runs an operation of the facade on the main thread, directly if called there. No exception may
/// reach the host.
template <typename Operation>
void onMainThread(Operation operation)
{
    if (!hasApplication())
        return;
    if (isMainThread())
        invokeNoexcept("an operation of the facade", operation);
    else
        platform().mainThread->post(operation);
}

/// As onMainThread(), for operations that need initialize().
template <typename Operation>
void whenInitialized(Operation operation)
{
    onMainThread([operation = std::move(operation)] {
        if (isInitialized())
            operation();
        else
            Logger::shared().reportMisuse(notInitialized);
    });
}

void ensureCustomerId()
{
    if (persistentstore::customerId())
        return;
    const QString id = ULID::generate(platform().clock->now()).description();
    if (persistentstore::setFirstCustomerId(id))
        Logger::shared().log(LogLevel::info, QStringLiteral("New customer ID generated: ") + id);
}

void start(const QString &key)
{
    if (!Configuration::shared().setApiKeyOnce(key))
        return;
    if (hasPlaceholderEndpoints()) {
        Logger::shared().reportMisuse(QStringLiteral(
            "This build of the library has no backend; set TOLVANE_PRODUCTION_API_URL in CMake"));
    }
    ensureCustomerId();
    UnreadTickets::shared(); // It observes the pushes from now on.
    Logger::shared().log(LogLevel::info, QStringLiteral("SDK initialized"));
    TolvaneAnalyticsManager::shared().track(TolvaneAnalyticsEvent::Lifecycle::sdkInitialized,
                                            {{Keys::actionType, QStringLiteral("lifecycle")}});
    platform().mainThread->post([] { detach(SdkData::shared()->fetchSettings()); });
}

} // namespace

QString Tolvane::rawValue(Environment environment)
{
    return QString::fromLatin1(environmentNames.at(static_cast<std::size_t>(environment)));
}

std::optional<Tolvane::Environment> Tolvane::environmentFromRawValue(const QString &rawValue)
{
    for (std::size_t i = 0; i < environmentNames.size(); ++i) {
        if (rawValue == QLatin1String(environmentNames.at(i)))
            return static_cast<Environment>(i);
    }
    return std::nullopt;
}

void Tolvane::initialize(const QString &key)
{
    onMainThread([key] { start(key); });
}

void Tolvane::setEnvironment(Environment environment)
{
    Configuration::shared().setEnvironment(environment);
}

void Tolvane::enableLogging(bool enabled)
{
    Logger::shared().setEnabled(enabled);
}

void Tolvane::setAnalyticsDelegate(const std::shared_ptr<TolvaneAnalyticsDelegate> &delegate)
{
    onMainThread([delegate] {
        TolvaneAnalyticsManager::shared().setDelegate(delegate);
        Logger::shared().log(LogLevel::info, QStringLiteral("Analytics delegate set: ") +
                                                 (delegate ? QStringLiteral("enabled")
                                                           : QStringLiteral("disabled")));
    });
}

QFuture<void> Tolvane::updateCustomer(const std::optional<QString> &email,
                                      const std::optional<QString> &originalCustomerId)
{
    const auto promise = std::make_shared<UpdatePromise>();
    QFuture<void> future = promise->future();
    whenInitialized([=] { detach(customerupdate::send(email, originalCustomerId, promise)); });
    return future;
}

void Tolvane::setPresentation(Presentation presentation)
{
    onMainThread([presentation] { HostOptions::shared()->setPresentation(presentation); });
}

void Tolvane::setPresentation(Presentation presentation, QObject *window)
{
    onMainThread([presentation, window = QPointer(window)] {
        if (window)
            HostOptions::shared()->setPresentation(presentation, *window);
        else
            Logger::shared().reportMisuse(QStringLiteral("setPresentation() needs a window"));
    });
}

Tolvane::Presentation Tolvane::presentation()
{
    return HostOptions::shared()->presentation();
}

void Tolvane::setPanelSide(PanelSide side)
{
    onMainThread([side] { HostOptions::shared()->setPanelSide(side); });
}

Tolvane::PanelSide Tolvane::panelSide()
{
    return HostOptions::shared()->panelSide();
}

void Tolvane::setScreenshotEnabled(bool enabled)
{
    onMainThread([enabled] { HostOptions::shared()->setScreenshotEnabled(enabled); });
}

void Tolvane::setEnterSends(bool sends)
{
    onMainThread([sends] { HostOptions::shared()->setEnterSends(sends); });
}

void Tolvane::open()
{
    whenInitialized([] {
        TolvaneAnalyticsManager::shared().track(TolvaneAnalyticsEvent::Chat::opened, {});
        platform().present();
    });
}

void Tolvane::openConversation(const QString &id)
{
    whenInitialized([id] { conversations::open(id); });
}

void Tolvane::openNewConversation(const QString &text)
{
    whenInitialized([text] { conversations::openNew(text); });
}

void Tolvane::close()
{
    whenInitialized([] { platform().dismiss(); });
}

bool Tolvane::isOpen()
{
    return SdkData::shared()->isOpen();
}

int Tolvane::unreadCount()
{
    return UnreadTickets::shared()->count();
}

void Tolvane::refreshUnread()
{
    whenInitialized([] { detach(UnreadTickets::shared()->refresh()); });
}

TolvaneNotifier *Tolvane::notifier()
{
    return sharedInstance<TolvaneNotifier>(
               [] { return std::shared_ptr<TolvaneNotifier>(new TolvaneNotifier); })
        .get();
}

QString Tolvane::version()
{
    return QStringLiteral(TOLVANE_VERSION_STR);
}

void Tolvane::setDeviceToken(const QByteArray &deviceToken)
{
    whenInitialized([deviceToken] { pushrouting::registerDevice(deviceToken); });
}

bool Tolvane::isTolvanePushNotification(const QVariantMap &payload)
{
    return pushrouting::isTolvanePush(payload);
}

PresentationOptions Tolvane::willPresentNotification(const QVariantMap &payload)
{
    PresentationOptions options = PresentationOptions::none;
    if (!isMainThread()) {
        Logger::shared().reportMisuse(
            QStringLiteral("Tolvane::willPresentNotification was called off the main thread"));
        return options;
    }
    whenInitialized([&options, payload] { options = pushrouting::willPresent(payload); });
    return options;
}

void Tolvane::handlePushNotification(const QVariantMap &payload)
{
    whenInitialized([payload] {
        // A messenger that is sliding out comes back.
        if (isTolvanePushNotification(payload) && isOpen())
            platform().present();
        conversations::requestFor(payload);
        pushrouting::handle(payload);
        ConversationRequest::shared()->take(); // Left over if there is no window.
    });
}

} // namespace tolvane
