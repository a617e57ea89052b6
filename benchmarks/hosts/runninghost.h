// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/support/hostplatform.h"
#include "ui/home/screendata.h"

#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>

#include <memory>

namespace tolvane::bench {

/// The samples' branding, in colours that show texts.
BrandingDto readableBranding();

/// A host with a window that is shown, and a backend in the same process.
class RunningHost
{
public:
    /// @param tickets the number of tickets in the backend
    explicit RunningHost(int tickets);

    QQuickView &window() { return m_window; }
    /// The tickets in the backend. They may be changed.
    QList<TicketPreviewDto> &tickets() { return m_tickets; }

    /// The messenger's view; null while the messenger is closed.
    QQuickItem *messenger() const;
    /// The messenger must be open.
    ScreenData &screen() const;
    void waitForList() const;
    /// Frees the requests that the replaced network records.
    static void clearRequests();

    /// Shows a minimal interface of the host above its scene, with 10,000 rows.
    /// @returns the view; its destruction hides it
    std::unique_ptr<QQuickItem> showPlain(QQmlEngine &engine);

    /// The list in a view, which must have one.
    static QQuickItem *listIn(QQuickItem *view);

private:
    QList<TicketPreviewDto> m_tickets;
    HostPlatform m_platform;
    QQuickView m_window;
};

} // namespace tolvane::bench
