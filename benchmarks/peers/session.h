// SPDX-License-Identifier: MIT
#pragma once

#include "conversationview.h"
#include "processtree.h"
#include "testing/backendprogram.h"

#include <QtCore/QTemporaryDir>

namespace tolvane::peers {

/// What is compared: a program, and the page that it shows.
struct Peer
{
    const char *name;
    QString program;
    QString page;
};

/// The local backend with a conversation of this many messages. One in ten has a picture, and only
/// the last one is an agent's, so that it can be recognized by the colour of its bubble.
class Backend
{
public:
    explicit Backend(int messageCount);

    /// Adds a message of an agent, and returns its JSON.
    QByteArray addMessage() const;

    const Conversation &conversation() const { return m_conversation; }
    /// The folder for the configuration of a host.
    QString folder() const { return m_folder.path(); }

private:
    static QString writeSeed(const QString &folder, int messageCount);

    const QTemporaryDir m_folder;
    const test::BackendProgram m_program;
    Conversation m_conversation;
};

/// A running host.
class Session
{
public:
    Session(const Peer &peer, const Backend &backend);

    void waitUntilRunning();
    ProcessTree processes() const { return ProcessTree(m_host.id()); }

    void startOpening() { m_host.write("open\n"); }
    /// @returns the time until the last message is on the screen, in ms
    double open();
    void close() { m_host.write("close\n"); }
    /// @returns the time until the message is on the screen, in ms
    double receive();
    /// @returns the number of frames
    int fling(int steps);

private:
    const Backend &m_backend;
    test::Process m_host;
};

} // namespace tolvane::peers
