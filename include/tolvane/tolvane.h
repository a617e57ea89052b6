// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/analytics.h>
#include <tolvane/export.h>

#include <QtCore/QByteArray>
#include <QtCore/QFuture>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <memory>
#include <optional>

#ifdef TOLVANE_SDK
#include <tolvane/views.h>
#endif

namespace tolvane {

/// How a push is to be shown while the host is in the foreground. The values are those of the
/// mobile platform's presentation options, so that a push bridge can hand them on as they are.
enum class PresentationOptions {
    none = 0,           ///< not one of this library's pushes
    sound = 2,          ///< the messenger is open and shows the content itself
    soundAndBanner = 18 ///< the messenger is closed
};

/// The whole entry point of the library.
///
/// @code
/// QGuiApplication app(argc, argv);
/// tolvane::Tolvane::initialize(QStringLiteral("my-api-key"));
/// QObject::connect(helpButton, &QPushButton::clicked, [] { tolvane::Tolvane::open(); });
/// @endcode
///
/// A QCoreApplication has to exist before the first call. Operations belong to its thread, the main
/// thread. A call without a result that comes from another thread is passed on to the main thread
/// and carried out there in the order of the calls.
///
/// No operation fails towards the host: failures are logged (see enableLogging()) and reported to
/// the analytics delegate. A call that needs initialize() and comes before it does nothing and
/// writes "Tolvane is not initialized" to the log, also with logging off.
class TOLVANE_EXPORT Tolvane
{
public:
    /// Which backend is talked to. The process environment variable TOLVANE_API_URL overrides it.
    enum class Environment { production, development, alpha };

    /// "production", "development" or "alpha".
    static QString rawValue(Environment environment);
    /// The environment of that name; absent for any other text. Case counts.
    static std::optional<Environment> environmentFromRawValue(const QString &rawValue);

    /// Starts the library: keeps the key, makes sure that the customer has an id, and begins to
    /// load the settings without waiting for them. Only the first call counts.
    static void initialize(const QString &key);

    /// Takes effect for all requests made afterwards; best called before initialize().
    /// Safe from any thread.
    static void setEnvironment(Environment environment);

    /// Switches the library's log lines on or off; off at first. Safe from any thread.
    static void enableLogging(bool enabled);

    /// Sets the receiver of analytics events; null clears it. Held weakly: the host keeps it alive.
    static void setAnalyticsDelegate(const std::shared_ptr<TolvaneAnalyticsDelegate> &delegate);

    /// Tells the backend who the customer is.
    ///
    /// @param email the customer's address, or absent
    /// @param originalID the host's own id of the customer; absent forgets the stored one
    /// @return finishes, never with an error, when the update has been sent or has failed. It may
    /// be
    ///         dropped. Waiting for it with a blocking call on the main thread never ends.
    static QFuture<void> updateCustomer(const std::optional<QString> &email,
                                        const std::optional<QString> &originalID);

    /// Shows the support interface over the host's foreground window; without one, or without the
    /// library's user interface in the process, nothing is shown.
    static void open();

    /// Registers the device for pushes.
    /// @param deviceToken the push service's token, as raw bytes
    static void setDeviceToken(const QByteArray &deviceToken);

    /// True when the payload's "source" is the text "tolvane". Needs no initialize().
    /// Safe from any thread.
    static bool isTolvanePushNotification(const QVariantMap &payload);

    /// For the host's foreground push callback: tells how the push is to be shown, and delivers it
    /// at once when the messenger is open. Main thread only; elsewhere it reports the mistake to
    /// the log and answers PresentationOptions::none.
    static PresentationOptions willPresentNotification(const QVariantMap &payload);

    /// For the host's callback of a tapped push: opens the messenger if it is closed and delivers
    /// the content. A payload that is not this library's is ignored.
    static void handlePushNotification(const QVariantMap &payload);

    Tolvane() = delete;
};

} // namespace tolvane
