// SPDX-License-Identifier: MIT
#pragma once

#include "platform/async/shutdownhook.h"

#include <tolvane/tolvane.h>

#include <QtCore/QPointer>
#include <QtQuick/QQuickWindow>

#include <memory>

namespace tolvane {

/// The window that shows the messenger: the host's window if that is a QQuickWindow, else a window
/// of its own over the host's. That is modal to the host's window, or a child of it if the host
/// prefers the panel, and always on Wayland. Main thread.
class MessengerWindow
{
public:
    /// Without a window.
    MessengerWindow() = default;
    explicit MessengerWindow(QWindow &host);

    /// The host's window that has the focus, else a visible one; null if there is no visible
    /// window.
    static QWindow *foregroundWindow();
    /// How the host wants the messenger to be shown in this window.
    static Tolvane::Presentation presentationIn(const QWindow &host);

    /// The messenger's own window; null if the host's window shows it.
    QQuickWindow *ownWindow() const { return m_ownWindow.get(); }
    /// Null once it is destroyed, with the host's window for instance.
    QQuickWindow *window() const { return m_window; }
    QWindow *host() const { return m_host; }

    /// A process that ends with exit() while the messenger is open does not crash from then on.
    void open();
    /// The host has moved the item with the messenger to another window; null for none.
    void moveTo(QQuickWindow *window);
    void close();

private:
    struct DeleteLater
    {
        void operator()(QQuickWindow *window) const;
    };

    void placeOverHost();
    void placeInHost();

    QPointer<QWindow> m_host;
    QPointer<QQuickWindow> m_window;
    std::unique_ptr<QQuickWindow, DeleteLater> m_ownWindow;
    ShutdownHook m_shutdownHook;
};

} // namespace tolvane
