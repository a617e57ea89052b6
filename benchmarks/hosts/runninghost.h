// SPDX-License-Identifier: MIT
#pragma once

#include "ui/home/screendata.h"

#include <QtCore/QTemporaryDir>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>

namespace tolvane::bench {

/// A host: a window that is up and draws, and a backend within the process that has so many
/// tickets.
class RunningHost
{
public:
    explicit RunningHost(int tickets);

    QQuickView &window() { return m_window; }
    /// What the backend has; may be changed.
    QList<TicketPreviewDto> &tickets() { return m_tickets; }

    /// The messenger's view while it is there, else null.
    QQuickItem *messenger() const;
    /// Of the messenger that is there.
    ScreenData &screen() const;
    void waitForList() const;
    /// The network that stands in keeps all that it was asked.
    static void forgetRequests();

    /// Shows something of the host's own over all that it has: a header, rows with texts, a button,
    /// and nothing more. With 10,000 rows.
    /// @returns what goes away as it is deleted
    QQuickItem *showPlain(QQmlEngine &engine);

    /// The list in a view. Ends the program where there is none.
    static QQuickItem *listIn(QQuickItem *view);

private:
    void installPlatform();

    const QTemporaryDir m_caches;
    QList<TicketPreviewDto> m_tickets;
    QQuickView m_window;
};

} // namespace tolvane::bench
