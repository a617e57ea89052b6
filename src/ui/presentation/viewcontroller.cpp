// SPDX-License-Identifier: MIT
#include "ui/presentation/viewcontroller.h"

#include "analytics/manager.h"
#include "platform/logger.h"
#include "platform/platform.h"
#include "state/hostoptions.h"
#include "state/notifications.h"
#include "ui/home/screendata.h"
#include "ui/presentation/idlememory.h"
#include "ui/presentation/keyguard.h"
#include "ui/presentation/missingparts.h"
#include "ui/presentation/viewsengine.h"

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

#include <utility>

namespace tolvane {

namespace {

void postDidChangeState(bool isOpen)
{
    platform().notificationCenter->post(notifications::didChangeState,
                                        QVariantMap{{QStringLiteral("open"), isOpen}});
}

QPointer<TolvaneViewController> &current()
{
    static QPointer<TolvaneViewController> controller;
    return controller;
}

/// Visible items of the host that the messenger may be shown in.
std::vector<QQuickItem *> &hostItems()
{
    static std::vector<QQuickItem *> items;
    return items;
}

void logMissingParts()
{
    static bool isLogged = false;
    if (!Logger::shared().isEnabled() || std::exchange(isLogged, true))
        return;
    const QString parts = missingParts(viewsEngine());
    if (!parts.isEmpty())
        Logger::shared().log(LogLevel::warning, QStringLiteral("This system lacks ") + parts);
}

} // namespace

TolvaneViewController::TolvaneViewController() = default;

TolvaneViewController::~TolvaneViewController()
{
    delete m_view;
}

void TolvaneViewController::present()
{
    if (current() && current()->m_data->isShown())
        return;
    // A messenger that is still sliding out is removed at once.
    if (current())
        current()->viewDidDisappear();
    QQuickItem *hostItem = hostItems().empty() ? nullptr : hostItems().front();
    if (QWindow *window = hostItem ? hostItem->window() : MessengerWindow::foregroundWindow())
        (new TolvaneViewController)->presentIn(*window, hostItem);
}

void TolvaneViewController::dismiss()
{
    if (!current())
        return;
    current()->m_data->setShown(false);
    if (current()->m_hostItem)
        current()->m_data->didHide(); // It does not slide out.
}

void TolvaneViewController::addHostItem(QQuickItem &item)
{
    hostItems().push_back(&item);
    if (hostItems().size() > 1) {
        Logger::shared().log(LogLevel::warning,
                             QStringLiteral("Another item shows the messenger; this one is empty"));
    } else if (current()) {
        current()->viewDidDisappear();
    }
}

void TolvaneViewController::removeHostItem(QQuickItem &item)
{
    const bool wasShown = isShownIn(item);
    std::erase(hostItems(), &item);
    if (!wasShown)
        return;
    current()->viewDidDisappear();
    if (!hostItems().empty())
        QMetaObject::invokeMethod(qGuiApp, &TolvaneViewController::present, Qt::QueuedConnection);
}

bool TolvaneViewController::isFirstHostItem(const QQuickItem &item)
{
    return !hostItems().empty() && hostItems().front() == &item;
}

bool TolvaneViewController::isShownIn(const QQuickItem &item)
{
    return current() && current()->m_hostItem == &item;
}

void TolvaneViewController::presentIn(QWindow &window, QQuickItem *hostItem)
{
    m_hostItem = hostItem;
    idlememory::keep();
    m_messengerWindow = MessengerWindow(window);
    m_previousFocusItem = m_messengerWindow.window()->activeFocusItem();
    if (!viewDidLoad(hostItem ? hostItem : m_messengerWindow.window()->contentItem())) {
        deleteLater();
        return;
    }
    current() = this;
    m_messengerWindow.open();
    if (!hostItem)
        m_view->forceActiveFocus();
    m_isOnScreen = true;
    m_data->setShown(true);
    logMissingParts();
    // Last, since an observer may close the messenger again.
    postDidChangeState(true);
}

bool TolvaneViewController::viewDidLoad(QQuickItem *parent)
{
    m_data = std::make_unique<ScreenData>();
    m_data->setEmbedded(m_hostItem);
    updatePresentation();
    if (!createView(parent))
        return false;
    new KeyGuard(*m_view, *m_data);
    connect(HostOptions::shared().get(), &HostOptions::changed, this,
            &TolvaneViewController::updatePresentation);
    connect(m_data.get(), &ScreenData::closeRequested, this, &TolvaneViewController::closeTapped);
    // Queued, since the view emits the signal and the slot deletes the view.
    connect(m_data.get(), &ScreenData::hidden, this, &TolvaneViewController::viewDidDisappear,
            Qt::QueuedConnection);
    observeWindows();
    return true;
}

bool TolvaneViewController::createView(QQuickItem *parent)
{
    const QUrl file(QStringLiteral(
        "qrc:/qt-project.org/imports/Tolvane/Private/presentation/TolvanePresentation.qml"));
    QQmlComponent component(&viewsEngine(), file);
    if (component.isReady()) {
        m_view = qobject_cast<QQuickItem *>(component.createWithInitialProperties(
            {{QStringLiteral("screen"), QVariant::fromValue(m_data.get())},
             {QStringLiteral("parent"), QVariant::fromValue(parent)}}));
    }
    if (!m_view) {
        Logger::shared().log(LogLevel::error, QStringLiteral("The messenger cannot be shown: ") +
                                                  component.errorString());
        return false;
    }
    QQmlEngine::setObjectOwnership(m_view, QQmlEngine::CppOwnership);
    return true;
}

/// The window may be closed or destroyed under the messenger, and the application may end.
void TolvaneViewController::observeWindows()
{
    const auto closeWith = [this](const QWindow *window) {
        connect(window, &QWindow::visibleChanged, this, [this](bool isVisible) {
            if (!isVisible)
                viewDidDisappear();
        });
    };
    // MessengerItem removes itself when its window hides. A dock that floats gets another window.
    if (m_hostItem) {
        connect(m_hostItem, &QQuickItem::windowChanged, this,
                [this](QQuickWindow *window) { m_messengerWindow.moveTo(window); });
    } else {
        closeWith(m_messengerWindow.window());
        closeWith(m_messengerWindow.host());
        connect(m_messengerWindow.window(), &QObject::destroyed, this,
                &TolvaneViewController::viewDidDisappear);
    }
    if (QQuickWindow *own = m_messengerWindow.ownWindow()) {
        // Without a receiver of this signal Qt would abort the host. Queued, since the slot deletes
        // the window.
        connect(own, &QQuickWindow::sceneGraphError, this, &TolvaneViewController::graphicsFailed,
                Qt::QueuedConnection);
    }
    connect(qGuiApp, &QCoreApplication::aboutToQuit, this,
            &TolvaneViewController::viewDidDisappear);
}

/// A window of the messenger's own is as large as the panel.
void TolvaneViewController::updatePresentation()
{
    const QWindow *host = m_messengerWindow.host();
    m_data->setPanelPreferred(host && !m_hostItem && !m_messengerWindow.ownWindow() &&
                              MessengerWindow::presentationIn(*host) ==
                                  Tolvane::Presentation::panel);
}

void TolvaneViewController::graphicsFailed(QQuickWindow::SceneGraphError /*error*/,
                                           const QString &message)
{
    Logger::shared().log(LogLevel::error,
                         QStringLiteral("The messenger cannot be drawn: ") + message);
    viewDidDisappear();
}

void TolvaneViewController::viewDidDisappear()
{
    if (!std::exchange(m_isOnScreen, false))
        return;
    current().clear();
    // The customer may have moved from the panel to the host.
    const bool hadFocus = m_view && m_view->hasFocus();
    delete m_view;
    const QPointer<QWindow> host = m_messengerWindow.host();
    m_messengerWindow.close();
    if (m_previousFocusItem && hadFocus && !m_hostItem)
        m_previousFocusItem->forceActiveFocus();
    idlememory::releaseLater(host);
    postDidChangeState(false);
    deleteLater();
}

void TolvaneViewController::closeTapped()
{
    if (!m_data->isShown() || m_hostItem)
        return; // It is closing already, or the host closes it.
    TolvaneAnalyticsManager::shared().trackUserAction(
        QStringLiteral("close_button_tapped"), QStringLiteral("chat"),
        {{QStringLiteral("close_method"), QStringLiteral("button")}});
    m_data->setShown(false);
}

} // namespace tolvane
