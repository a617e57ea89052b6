// SPDX-License-Identifier: MIT
#include "ui/presentation/messengerwindow.h"

#include <QtGui/QGuiApplication>

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

MessengerWindow::MessengerWindow(QWindow &host)
    : m_host(&host)
    , m_window(qobject_cast<QQuickWindow *>(&host))
{
    if (m_window)
        return;
    m_ownWindow.reset(new QQuickWindow);
    m_window = m_ownWindow.get();
    m_ownWindow->setTransientParent(&host);
    m_ownWindow->setModality(Qt::WindowModal);
    m_ownWindow->setFlag(Qt::FramelessWindowHint);
    m_ownWindow->setGeometry(host.geometry());
    m_ownWindow->setTitle(host.title());
    // It covers the host's window wherever that moves.
    for (const auto changed :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        QObject::connect(&host, changed, m_ownWindow.get(),
                         [&host, own = m_ownWindow.get()] { own->setGeometry(host.geometry()); });
}

void MessengerWindow::open()
{
    if (m_ownWindow)
        m_ownWindow->show();
}

void MessengerWindow::close()
{
    if (m_ownWindow)
        m_ownWindow->hide();
    m_ownWindow.reset();
    m_window.clear();
}

} // namespace tolvane
