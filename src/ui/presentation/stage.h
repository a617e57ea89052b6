// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtQuick/QQuickWindow>

#include <memory>

namespace tolvane {

/// Where the messenger is shown: inside the host's window where that is one of Qt Quick, else in a
/// window of its own over the host's, modal to it. Main thread.
class Stage
{
public:
    /// Nothing to show in.
    Stage() = default;
    explicit Stage(QWindow &host);

    /// The host's window that the customer looks at; null when the host has none.
    static QWindow *foregroundWindow();

    /// Null once it has gone, with the host's window for instance.
    QQuickWindow *window() const { return m_window; }
    QWindow *host() const { return m_host; }

    void open();
    void close();

private:
    struct DeleteLater
    {
        void operator()(QObject *object) const { object->deleteLater(); }
    };

    QPointer<QWindow> m_host;
    QPointer<QQuickWindow> m_window;
    std::unique_ptr<QQuickWindow, DeleteLater> m_own;
};

} // namespace tolvane
