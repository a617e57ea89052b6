// SPDX-License-Identifier: MIT
#include "ui/presentation/messengerwindow.h"

#include "base/mainthread.h"
#include "platform/platform.h"
#include "state/hostoptions.h"
#include "ui/kit/metrics.h"
#include "ui/panel/panelrules.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainterPath>

namespace tolvane {

namespace {

bool isShown(const QWindow *window)
{
    const Qt::WindowType type = window->type();
    return window->isVisible() && (type == Qt::Window || type == Qt::Dialog);
}

QWindow *topLevel(QWindow *window)
{
    while (window && window->parent())
        window = window->parent();
    return window;
}

/// The shape of the panel.
QRegion roundedRegion(const QSize &size)
{
    QPainterPath path;
    path.addRoundedRect(QRect(QPoint(), size), Metrics::PanelRadius, Metrics::PanelRadius);
    return QRegion(path.toFillPolygon().toPolygon());
}

/// F6 and Ctrl+Tab go from a host without Qt Quick to the panel and back. Owned by the panel.
class FocusKeys final : public QObject
{
public:
    FocusKeys(QWindow &host, QWindow &panel)
        : QObject(&panel)
        , m_host(host)
        , m_panel(panel)
    {
        host.installEventFilter(this);
        panel.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isPress = event->type() == QEvent::KeyPress;
        const bool coversHost = m_panel.size() == m_host.size();
        if (coversHost || (!isPress && event->type() != QEvent::ShortcutOverride))
            return false;
        const auto *press = static_cast<QKeyEvent *>(event);
        const QKeyCombination key = press->keyCombination();
        if (key != QKeyCombination(Qt::Key_F6) && key != (Qt::CTRL | Qt::Key_Tab))
            return false;
        event->accept();
        if (isPress)
            (watched == &m_panel ? m_host : m_panel).requestActivate();
        return true;
    }

private:
    QWindow &m_host;
    QWindow &m_panel;
};

/// Stops the render thread, which draws animations until the process has ended. exit() would
/// destroy what the thread uses.
void stopRendering(QQuickWindow *window)
{
#ifndef Q_OS_WIN // The system has ended all other threads by then.
    // The application object stops rendering itself.
    if (!window || !isMainThread() || QCoreApplication::closingDown())
        return;
    const QSignalBlocker hostsHandlersMustNotRun(window);
    window->hide();
#endif
}

} // namespace

QWindow *MessengerWindow::foregroundWindow()
{
    QWindow *focused = topLevel(QGuiApplication::focusWindow());
    if (focused && isShown(focused))
        return focused;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto shown = std::find_if(windows.begin(), windows.end(), isShown);
    return shown == windows.end() ? nullptr : *shown;
}

Tolvane::Presentation MessengerWindow::presentationIn(const QWindow &host)
{
    const HostOptions &options = *HostOptions::shared();
    if (const auto own = options.presentationOf(&host))
        return *own;
    // The focus object of a window of widgets is a widget.
    for (const QObject *widget = host.focusObject(); widget; widget = widget->parent()) {
        if (const auto own = options.presentationOf(widget))
            return *own;
    }
    return options.presentation();
}

MessengerWindow::MessengerWindow(QWindow &host)
    : m_host(&host)
    , m_window(qobject_cast<QQuickWindow *>(&host))
{
    if (m_window)
        return;
    m_ownWindow.reset(new QQuickWindow);
    m_window = m_ownWindow.get();
    m_ownWindow->setTitle(host.title());
    m_ownWindow->setProperty("isMessenger", true);
    // On Wayland a window cannot be moved over another one.
    if (presentationIn(host) == Tolvane::Presentation::panel ||
        QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        placeInHost();
    else
        placeOverHost();
}

void MessengerWindow::placeOverHost()
{
    m_ownWindow->setTransientParent(m_host);
    m_ownWindow->setModality(Qt::WindowModal);
    m_ownWindow->setFlag(Qt::FramelessWindowHint);
    m_ownWindow->setGeometry(m_host->geometry());
    // It covers the host's window wherever that moves.
    for (const auto changed :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        QObject::connect(
            m_host, changed, m_ownWindow.get(),
            [&host = *m_host, own = m_ownWindow.get()] { own->setGeometry(host.geometry()); });
}

void MessengerWindow::placeInHost()
{
    const auto place = [&host = *m_host, own = m_ownWindow.get()] {
        const bool prefersPanel = presentationIn(host) == Tolvane::Presentation::panel;
        const bool isRightToLeft = platform().bundle->layoutDirection() == Qt::RightToLeft;
        const bool isLeading = HostOptions::shared()->panelSide() == Tolvane::PanelSide::leading;
        const QRect area =
            PanelRules::area(host.size(), prefersPanel, isRightToLeft != isLeading).toRect();
        own->setGeometry(area);
        own->setMask(area.size() == host.size() ? QRegion() : roundedRegion(area.size()));
    };
    // The window manager knows nothing of a child.
    m_ownWindow->setParent(m_host);
    place();
    for (const auto changed : {&QWindow::widthChanged, &QWindow::heightChanged})
        QObject::connect(m_host, changed, m_ownWindow.get(), place);
    QObject::connect(HostOptions::shared().get(), &HostOptions::changed, m_ownWindow.get(), place);
    new FocusKeys(*m_host, *m_ownWindow);
}

void MessengerWindow::DeleteLater::operator()(QQuickWindow *window) const
{
    // A process may call exit() before the event loop goes on, and its render thread still runs.
    static ShutdownHook hook;
    hook = onShutdown([window = QPointer(window)] { delete window; });
    window->deleteLater();
}

void MessengerWindow::moveTo(QQuickWindow *window)
{
    m_window = window;
    m_shutdownHook = onShutdown([window = m_window] { stopRendering(window); });
}

void MessengerWindow::open()
{
    moveTo(m_window);
    if (!m_ownWindow)
        return;
    m_ownWindow->show();
    if (m_ownWindow->parent())
        m_ownWindow->requestActivate();
}

void MessengerWindow::close()
{
    m_shutdownHook.reset();
    if (m_window.isNull())
        (void)m_ownWindow.release(); // Destroyed with the host's window.
    if (m_ownWindow)
        m_ownWindow->hide();
    m_ownWindow.reset();
    m_window.clear();
}

} // namespace tolvane
