// SPDX-License-Identifier: MIT
#pragma once

#include "testing/backendprogram.h"

#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

#include <functional>
#include <memory>

namespace tolvane::test {

/// Runs the console host with its JSON line protocol.
class ConsoleProgram
{
public:
    ConsoleProgram(const QString &configFolder, const QString &url);
    ~ConsoleProgram() { end(); }

    /// Sends a line unchanged.
    void send(const QByteArray &line);
    /// Sends a request and waits for its reply. Returns an object without "ok" after a timeout.
    QJsonObject request(const QString &command, QJsonObject arguments = {});
    /// Waits for an object that matches. Objects received earlier are searched first.
    QJsonObject await(const std::function<bool(const QJsonObject &)> &matches);
    QJsonObject awaitEvent(const QString &event, const QString &name);

    /// Closes the input and returns the exit code; -1 after a timeout or a crash.
    int end() { return m_process.waitForExit(); }
    QByteArray errors() { return m_process.errors(); }

private:
    Process m_process;
    QList<QJsonObject> m_unread;
    int m_lastId = 0;
};

} // namespace tolvane::test
