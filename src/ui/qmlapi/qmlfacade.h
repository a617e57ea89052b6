// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/tolvane.h>

#include <QtCore/QObject>
#include <QtCore/QVariantMap>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace tolvane {

/// The facade for hosts that are written in QML, as the singleton `Tolvane`.
///
/// @code
/// import Tolvane
///
/// Button {
///     text: "Help"
///     enabled: !Tolvane.isOpen
///     onClicked: Tolvane.open()
///     Component.onCompleted: Tolvane.initialize("my-api-key")
/// }
/// @endcode
///
/// Methods behave like those of the C++ class, also when they fail. Each engine has its own
/// instance; all instances control the same messenger. Hosts may use both languages at once. Main
/// thread.
class QmlFacade : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Tolvane)
    QML_SINGLETON
    /// True while the messenger is on screen.
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged)
    /// The number of conversations with an unread message; see Tolvane::unreadCount().
    Q_PROPERTY(int unreadCount READ unreadCount NOTIFY unreadCountChanged)
    /// How the messenger is shown: `Tolvane.Full` or `Tolvane.Panel`. A window may have its own,
    /// see setPresentation().
    Q_PROPERTY(Presentation presentation READ presentation WRITE setPresentation NOTIFY
                   presentationChanged)
    /// The side of the panel: `Tolvane.Trailing` or `Tolvane.Leading`.
    Q_PROPERTY(PanelSide panelSide READ panelSide WRITE setPanelSide NOTIFY presentationChanged)
    /// The version of the library, "major.minor.patch".
    Q_PROPERTY(QString version READ version CONSTANT)

public:
    enum Environment : int {
        Production = static_cast<int>(Tolvane::Environment::production),
        Development = static_cast<int>(Tolvane::Environment::development),
        Alpha = static_cast<int>(Tolvane::Environment::alpha),
    };
    Q_ENUM(Environment)

    enum Presentation : int {
        Full = static_cast<int>(Tolvane::Presentation::full),
        Panel = static_cast<int>(Tolvane::Presentation::panel),
    };
    Q_ENUM(Presentation)

    enum PanelSide : int {
        Trailing = static_cast<int>(Tolvane::PanelSide::trailing),
        Leading = static_cast<int>(Tolvane::PanelSide::leading),
    };
    Q_ENUM(PanelSide)

    enum PresentationOptions : int {
        None = static_cast<int>(tolvane::PresentationOptions::none),
        Sound = static_cast<int>(tolvane::PresentationOptions::sound),
        SoundAndBanner = static_cast<int>(tolvane::PresentationOptions::soundAndBanner),
    };
    Q_ENUM(PresentationOptions)

    explicit QmlFacade(QObject *parent = nullptr);
    ~QmlFacade() override;

    bool isOpen() const { return m_isOpen; }
    int unreadCount() const { return Tolvane::unreadCount(); }
    Presentation presentation() const { return static_cast<Presentation>(Tolvane::presentation()); }
    void setPresentation(Presentation presentation);
    PanelSide panelSide() const { return static_cast<PanelSide>(Tolvane::panelSide()); }
    void setPanelSide(PanelSide side);
    QString version() const { return Tolvane::version(); }

    Q_INVOKABLE void initialize(const QString &key);
    /// Unknown values log a warning and are ignored.
    Q_INVOKABLE void setEnvironment(tolvane::QmlFacade::Environment environment);
    Q_INVOKABLE void enableLogging(bool enabled);
    /// `undefined` and `null` mean absent.
    Q_INVOKABLE void updateCustomer(const QVariant &email = {},
                                    const QVariant &originalCustomerId = {});
    /// Sets how the messenger is shown in one window.
    /// @param window the window, for example `Window.window`
    Q_INVOKABLE void setPresentation(tolvane::QmlFacade::Presentation presentation,
                                     QObject *window);
    Q_INVOKABLE void setScreenshotEnabled(bool enabled);
    Q_INVOKABLE void setEnterSends(bool sends);
    Q_INVOKABLE void open();
    Q_INVOKABLE void openConversation(const QString &id);
    Q_INVOKABLE void openNewConversation(const QString &text = {});
    Q_INVOKABLE void close();
    Q_INVOKABLE void refreshUnread();
    /// @param deviceToken the push service's token, as an ArrayBuffer of its raw bytes
    Q_INVOKABLE void setDeviceToken(const QByteArray &deviceToken);
    Q_INVOKABLE bool isTolvanePushNotification(const QVariantMap &payload) const;
    Q_INVOKABLE tolvane::QmlFacade::PresentationOptions
    willPresentNotification(const QVariantMap &payload);
    Q_INVOKABLE void handlePushNotification(const QVariantMap &payload);

Q_SIGNALS:
    void isOpenChanged();
    void unreadCountChanged();
    void presentationChanged();

    /// Emitted for each analytics event, after a delegate in C++ has been notified.
    /// @param event an object with the properties of TolvaneAnalyticsEvent: `name`, `properties`,
    /// `timestamp`, `sdkVersion`, `customerId`, `originalCustomerId`, `environment`; an absent id
    /// is `undefined`
    void analyticsEvent(const QVariantMap &event);

private:
    class AnalyticsObserver;

    void updateIsOpen();
    bool isKnown(Presentation presentation) const;

    bool m_isOpen;
    std::shared_ptr<AnalyticsObserver> m_observer;
};

} // namespace tolvane
