// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "platform/network/urlsession.h"
#include "state/messagedata.h"
#include "state/navigationdata.h"
#include "ui/conversation/ticketscreendata.h"
#include "ui/listview/anchoredlist.h"

#include <QtQuick/QQuickView>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace tolvane::bench {

/// A conversation as people have them: short and long messages of both sides by turns, some with
/// marks, one in ten with a picture of its own.
TicketDto conversation(int messageCount);

/// A backend and a network for pictures, which answer from the workers.
class CannedBackend final : public UrlSession
{
public:
    /// The address of one with 12 megapixels.
    inline static const QUrl largePhoto{QStringLiteral("https://cdn.example/large.jpg")};

    QFuture<UrlResponse> send(std::function<UrlRequest()> build) override;

    void setTicket(const TicketDto &ticket);

private:
    QByteArray bodyOf(const QString &path);

    std::mutex m_mutex;
    QByteArray m_ticket;
};

double mostOf(const std::vector<double> &figures);
double medianOf(std::vector<double> figures);

/// A window whose frames are made as they are asked for.
class HostWindow : public QQuickView
{
public:
    HostWindow();

    /// Fills the window with what the source makes.
    QQuickItem *show(const QByteArray &source, const QVariantMap &properties = {});

    /// Changes something, and shows it with the next frame.
    /// @returns the main thread's work for both and for what they leave behind
    double frame(const std::function<void()> &change);

    /// Lets things go their way.
    void rest(int milliseconds);

    /// The same until something has come about, which ends the program if it does not.
    void await(const char *what, const std::function<bool()> &hasCome);
};

/// The conversation's screen in a window.
class ConversationScene
{
public:
    ConversationScene(CannedBackend &backend, int messageCount);

    /// Opens the screen and waits for the first frame that shows the end of the conversation.
    /// @returns the main thread's work from the decoded ticket to there
    double open();

    HostWindow window;
    TicketDto ticket;
    TicketScreenData *data = nullptr;
    AnchoredList *rows = nullptr;

    bool showsItsEnd() const;
    void scrollTo(double contentY) { rows->parentItem()->setProperty("contentY", contentY); }

private:
    CannedBackend &m_backend;
    NavigationData m_navigation;
    MessageData m_messages;
};

} // namespace tolvane::bench
