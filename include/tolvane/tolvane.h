// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The entry point for hosts.

#include <tolvane/analytics.h>
#include <tolvane/export.h>
#include <tolvane/notifier.h>

#include <QtCore/QByteArray>
#include <QtCore/QFuture>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <memory>
#include <optional>

#ifdef TOLVANE_SDK
#include <tolvane/views.h>
#endif

namespace tolvane {

/// How the host shows a push while it is in the foreground. The values are those of iOS's
/// `UNNotificationPresentationOptions`, so a push bridge can pass them on.
enum class PresentationOptions {
    none = 0,           ///< not one of this library's pushes
    sound = 2,          ///< the messenger is open and shows the content itself
    soundAndBanner = 18 ///< the messenger is closed
};

/// The entry point of the library.
///
/// @code
/// QApplication app(argc, argv);
/// tolvane::Tolvane::initialize(QStringLiteral("my-api-key"));
/// QObject::connect(helpButton, &QPushButton::clicked, [] { tolvane::Tolvane::open(); });
/// @endcode
///
/// A QCoreApplication must exist before the first call. Operations run on its thread, the main
/// thread. A call without a result from another thread is queued to the main thread, in the order
/// of the calls.
///
/// No operation reports a failure to its caller: failures are logged (see enableLogging()) and sent
/// to the analytics delegate. A call that requires initialize() but comes before it has no effect
/// and logs "Tolvane is not initialized", also while logging is off.
class TOLVANE_EXPORT Tolvane
{
public:
    /// Selects the backend. The environment variable TOLVANE_API_URL overrides it.
    enum class Environment {
        production,  ///< the default
        development, ///< for hosts under development
        alpha        ///< for features that are not released yet
    };

    /// How the messenger is shown in the host's window.
    enum class Presentation {
        full, ///< over the whole window; the default
        /// 400 pixels wide and up to 720 high, at a lower corner of the window. The rest
        /// of the window stays visible and usable. While the window is smaller than 700 by 500
        /// pixels, the messenger covers all of it.
        panel
    };

    /// The side of the window at which the panel is, in the direction of reading.
    enum class PanelSide {
        trailing, ///< the default
        leading
    };

    /// "production", "development" or "alpha".
    static QString rawValue(Environment environment);
    /// The environment with this name, case-sensitively; absent for any other text.
    static std::optional<Environment> environmentFromRawValue(const QString &rawValue);

    /// Starts the library: stores the key, ensures that the customer has an id, and starts loading
    /// the settings without waiting for them. Only the first call has an effect; the library cannot
    /// be shut down.
    /// @param key the host's API key, which every request to the backend carries as a bearer token;
    /// not validated here
    static void initialize(const QString &key);

    /// Selects the backend for all later requests; best called before initialize(). Safe from any
    /// thread.
    static void setEnvironment(Environment environment);

    /// Switches the library's log on or off; it is off by default. Lines go to the logging category
    /// `com.tolvane.ios.Tolvane`, and never contain the key. Safe from any thread.
    static void enableLogging(bool enabled);

    /// Sets the receiver of analytics events; null removes it. The library holds it weakly: the
    /// host must keep it alive. Set it before initialize() to receive that event, too.
    static void setAnalyticsDelegate(const std::shared_ptr<TolvaneAnalyticsDelegate> &delegate);

    /// Sends the customer's identity to the backend. Safe from any thread.
    ///
    /// @param email the customer's address, or absent
    /// @param originalCustomerId the host's own id of the customer, kept on the device whether or
    /// not the backend can be reached; if absent, the stored one is removed
    /// @return finishes, never with an error, when the update has been sent or has failed, and at
    /// once before initialize(). It may be discarded. Blocking on it from the main thread
    /// deadlocks. A future that is pending when the application quits
    /// (QCoreApplication::aboutToQuit()), or when the process exits, is cancelled: threads that
    /// wait for it continue, and none of the host's continuations run in a process that is being
    /// destroyed.
    static QFuture<void> updateCustomer(const std::optional<QString> &email,
                                        const std::optional<QString> &originalCustomerId);

    /// Sets how the messenger is shown, in all windows that have no presentation of their own; an
    /// open messenger changes at once.
    static void setPresentation(Presentation presentation);
    /// Sets how the messenger is shown in this window, whatever is set for all windows. Main
    /// thread. Does not require initialize().
    /// @param presentation how the messenger is shown in this window
    /// @param window a QWindow, or the QWidget of a window; the library does not own it
    static void setPresentation(Presentation presentation, QObject *window);
    /// The presentation in all windows that have none of their own. Main thread. Does not require
    /// initialize().
    static Presentation presentation();

    /// Sets the side of the panel, in all windows; an open panel moves at once.
    static void setPanelSide(PanelSide side);
    /// Main thread. Does not require initialize().
    static PanelSide panelSide();

    /// Whether the customer can attach a picture of the host's window, from the menu of the attach
    /// button; off by default. The picture shows the window with which the messenger was opened,
    /// without the messenger, and nothing else of the screen. The customer sees it and can remove
    /// it before it is sent. Windows of Qt Quick and Qt Widgets only.
    static void setScreenshotEnabled(bool enabled);

    /// Whether Enter on a hardware keyboard sends the message and Shift+Enter begins a new line,
    /// which is the default, or Enter begins a new line and Ctrl+Enter sends. With an on-screen
    /// keyboard, Enter always begins a new line.
    static void setEnterSends(bool sends);

    /// Opens the messenger over the host's foreground window: the one with the focus, else the
    /// first visible one. Without a window, or without the library of views, it opens nothing. An
    /// open messenger stays as it is. Each call sends the event
    /// TolvaneAnalyticsEvent::Chat::opened.
    static void open();

    /// Opens the messenger, or the open one, with this conversation. Back leads to the list. Sends
    /// the same event as open().
    /// @param id the conversation's id, for example `ticketId` of a push; an id that the backend
    /// does not know shows an error
    static void openConversation(const QString &id);

    /// Opens the messenger, or the open one, with a new conversation. Back leads to the list. Sends
    /// the same event as open().
    /// @param text put into the composer, where the customer can change it; the library never sends
    /// it by itself
    static void openNewConversation(const QString &text = {});

    /// Closes the messenger, animated, as its close button does. No effect if it is not open. Not
    /// an action of the customer's, so it sends no "user_action" event.
    static void close();

    /// True from the moment at which the messenger appears until its closing animation has ended.
    /// Main thread. Does not require initialize().
    static bool isOpen();

    /// The number of conversations with an unread message; 0 until refreshUnread() or the messenger
    /// has loaded the list of conversations. Each later list and each push updates it. The library
    /// does not poll for it. Main thread. Does not require initialize().
    static int unreadCount();

    /// Loads the list of conversations once, to update unreadCount(). A failure is logged and keeps
    /// the count. No effect while a refresh is running.
    static void refreshUnread();

    /// The object with the library's signals, the same at each call and valid until the process
    /// ends. Main thread. Does not require initialize().
    static TolvaneNotifier *notifier();

    /// The version of the loaded library, "major.minor.patch". Safe from any thread.
    static QString version();

    /// Registers the device for pushes. The token is not stored: call this at each start of the
    /// host, and whenever the push service issues another token.
    /// @param deviceToken the push service's token as raw bytes; sent to the backend in hexadecimal
    /// digits
    static void setDeviceToken(const QByteArray &deviceToken);

    /// True if the payload's "source" is the text "tolvane". Does not require initialize(). Safe
    /// from any thread.
    static bool isTolvanePushNotification(const QVariantMap &payload);

    /// For the host's foreground push callback: returns how to show the push, and delivers it at
    /// once if the messenger is open. Main thread only; on another thread it logs the mistake and
    /// returns PresentationOptions::none.
    /// @param payload the push's data, with lists as QVariantList and dictionaries as QVariantMap
    static PresentationOptions willPresentNotification(const QVariantMap &payload);

    /// For the host's callback for a tapped push: opens the messenger if it is closed, delivers the
    /// content, and shows the conversation of the push. Ignores payloads of other services.
    /// @param payload as for willPresentNotification()
    static void handlePushNotification(const QVariantMap &payload);

    Tolvane() = delete;
};

} // namespace tolvane
