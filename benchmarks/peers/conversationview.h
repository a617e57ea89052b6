// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtQuick/QQuickView>

#include <memory>

namespace tolvane::peers {

/// A conversation in the local backend.
struct Conversation
{
    QString url;
    QString key;
    QString customer;
    QString ticket;
    /// The name of the web page; empty for other views.
    QString page;
};

/// A view of a conversation in the window of a host. Each host of the comparison links one.
class ConversationView
{
public:
    ConversationView() = default;
    virtual ~ConversationView() = default;
    ConversationView(const ConversationView &) = delete;
    ConversationView &operator=(const ConversationView &) = delete;

    /// Fills the window, and loads the conversation.
    virtual void open(QQuickView &window) = 0;
    virtual void close() = 0;
    /// Takes a push.
    /// @param message the message's JSON
    virtual void receive(const QByteArray &message) = 0;
};

/// Called before the QGuiApplication is created.
void prepareProcess();

/// The versions of what shows the conversation.
QByteArray versions();

/// Called when the host's window is ready.
std::unique_ptr<ConversationView> makeView(const Conversation &conversation);

} // namespace tolvane::peers
