// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/support/hostplatform.h"
#include "state/messagedata.h"
#include "state/navigation/navigationdata.h"
#include "ui/conversation/ticketscreendata.h"
#include "ui/listview/anchoredlist.h"

#include <QtQuick/QQuickView>

#include <mutex>
#include <vector>

namespace tolvane::bench {

/// A backend with one ticket, and a network for pictures.
class ConversationBackend
{
public:
    /// The URL of a picture with 12 megapixels.
    inline static const QUrl largePhoto{QStringLiteral("https://cdn.example/large.jpg")};

    void setTicket(const TicketDto &ticket);
    /// The body of the response to a request. Thread-safe.
    QByteArray bodyFor(const UrlRequest &request);

private:
    std::mutex m_mutex;
    QByteArray m_ticket;
};

double medianOf(std::vector<double> figures);

/// A window that renders its frames on demand.
class HostWindow : public QQuickView
{
public:
    HostWindow();

    /// Fills the window with the item of a QML source.
    QQuickItem *show(const QByteArray &source, const QVariantMap &properties = {});

    /// Applies a change and renders the next frame.
    /// @returns the processor time of the main thread, deferred deletions included, in ms
    double frame(const std::function<void()> &change);
};

/// The conversation's screen in a window.
class ConversationFixture
{
public:
    ConversationFixture(ConversationBackend &backend, int messageCount);

    /// Opens the screen and waits for the first frame with the end of the conversation.
    /// @returns the main thread's processor time from the decoded ticket to that frame, in ms
    double open();

    bool showsEnd() const;
    void scrollTo(double contentY) { rows->parentItem()->setProperty("contentY", contentY); }

    HostWindow window;
    TicketDto ticket;
    TicketScreenData *data = nullptr;
    AnchoredList *rows = nullptr;

private:
    ConversationBackend &m_backend;
    NavigationData m_navigation;
    MessageData m_messages;
};

} // namespace tolvane::bench
