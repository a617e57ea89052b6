// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// All that a host calls.

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

/// How a push is to be shown while the host is in the foreground. The values are those of iOS's
/// `UNNotificationPresentationOptions`, so that a push bridge can hand them on as they are.
enum class PresentationOptions {
    none = 0,           ///< not one of this library's pushes
    sound = 2,          ///< the messenger is open and shows the content itself
    soundAndBanner = 18 ///< the messenger is closed
};

/// The whole entry point of the library.
///
/// @code
/// QApplication app(argc, argv);
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
    enum class Environment {
        production,  ///< the default
        development, ///< for hosts in the making
        alpha        ///< for what is to come
    };

    /// "production", "development" or "alpha".
    static QString rawValue(Environment environment);
    /// The environment of that name; absent for any other text. Case counts.
    static std::optional<Environment> environmentFromRawValue(const QString &rawValue);

    /// Starts the library: keeps the key, makes sure that the customer has an id, and begins to
    /// load the settings without waiting for them. Only the first call counts, and there is no
    /// shutting down.
    /// @param key the host's API key, sent as a bearer token with every request to the backend; not
    /// checked here
    static void initialize(const QString &key);

    /// Chooses the backend for all requests made afterwards; best called before initialize().
    /// Safe from any thread.
    static void setEnvironment(Environment environment);

    /// Switches the library's log lines on or off; off at first. They go to the logging category
    /// `com.tolvane.ios.Tolvane`, and never hold the key. Safe from any thread.
    static void enableLogging(bool enabled);

    /// Sets the receiver of analytics events; null clears it. Held weakly: the host keeps it alive.
    /// Set it before initialize() to hear of that, too.
    static void setAnalyticsDelegate(const std::shared_ptr<TolvaneAnalyticsDelegate> &delegate);

    /// Tells the backend who the customer is.
    ///
    /// @param email the customer's address, or absent
    /// @param originalID the host's own id of the customer, kept on the device whether or not the
    /// backend can be reached; absent forgets the stored one
    /// @return finishes, never with an error, when the update has been sent or has failed. It may
    /// be dropped. Waiting for it with a blocking call on the main thread never ends.
    static QFuture<void> updateCustomer(const std::optional<QString> &email,
                                        const std::optional<QString> &originalID);

    /// Shows the messenger over the host's foreground window: the one with the focus, else the
    /// first that is shown. Without one, or without the library of views in the process, nothing is
    /// shown. One that is open already stays as it is.
    static void open();

    /// Registers the device for pushes. The token is not kept: call it at each start of the host,
    /// and whenever the push service gives out another.
    /// @param deviceToken the push service's token, as raw bytes; goes to the backend in
    /// hexadecimal digits
    static void setDeviceToken(const QByteArray &deviceToken);

    /// True when the payload's "source" is the text "tolvane". Needs no initialize().
    /// Safe from any thread.
    static bool isTolvanePushNotification(const QVariantMap &payload);

    /// For the host's foreground push callback: tells how the push is to be shown, and delivers it
    /// at once when the messenger is open. Main thread only; elsewhere it reports the mistake to
    /// the log and answers PresentationOptions::none.
    /// @param payload the push's data; of its lists and dictionaries, QVariantList and QVariantMap
    /// are understood
    static PresentationOptions willPresentNotification(const QVariantMap &payload);

    /// For the host's callback of a tapped push: opens the messenger if it is closed and delivers
    /// the content. A payload that is not this library's is ignored.
    /// @param payload as for willPresentNotification()
    static void handlePushNotification(const QVariantMap &payload);

    Tolvane() = delete;
};

} // namespace tolvane
