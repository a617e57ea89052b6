// SPDX-License-Identifier: MIT
#include "ui/presentation/stage.h"

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

QWindow *Stage::foregroundWindow()
{
    QWindow *focused = topLevel(QGuiApplication::focusWindow());
    if (focused && isShown(focused))
        return focused;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto shown = std::find_if(windows.begin(), windows.end(), isShown);
    return shown == windows.end() ? nullptr : *shown;
}

Stage::Stage(QWindow &host)
    : m_host(&host)
    , m_window(qobject_cast<QQuickWindow *>(&host))
{
    if (m_window)
        return;
    m_own.reset(new QQuickWindow);
    m_window = m_own.get();
    m_own->setTransientParent(&host);
    m_own->setModality(Qt::WindowModal);
    m_own->setFlag(Qt::FramelessWindowHint);
    m_own->setGeometry(host.geometry());
    m_own->setTitle(host.title());
    // It covers the host's window wherever that moves.
    for (const auto changed :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        QObject::connect(&host, changed, m_own.get(),
                         [&host, own = m_own.get()] { own->setGeometry(host.geometry()); });
}

void Stage::open()
{
    if (m_own)
        m_own->show();
}

void Stage::close()
{
    if (m_own)
        m_own->hide();
    m_own.reset();
    m_window.clear();
}

} // namespace tolvane
