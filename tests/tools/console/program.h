// SPDX-License-Identifier: MIT
#pragma once

#include "testing/backendprogram.h"

#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <functional>
#include <memory>

namespace tolvane::test {

/// The console host under its line protocol.
class ConsoleProgram
{
public:
    ConsoleProgram(const QString &configFolder, const QString &url);
    ~ConsoleProgram() { end(); }

    /// Sends a line as it is.
    void send(const QByteArray &line);
    /// Sends a request and waits for its reply; an object without "ok" when none comes in time.
    QJsonObject request(const QString &command, QJsonObject arguments = {});
    /// Waits for an object that fits, among those that have come and those to come.
    QJsonObject await(const std::function<bool(const QJsonObject &)> &fits);
    QJsonObject awaitEvent(const QString &event, const QString &name);

    /// Ends the input and gives the exit status; -1 when it doesn't end by itself.
    int end();
    QByteArray errors() { return m_process.readAllStandardError(); }

private:
    QProcess m_process;
    QList<QJsonObject> m_unread;
    int m_lastId = 0;
};

/// What the console prints for people while it carries out the commands; with the exit status.
std::pair<QByteArray, int> sessionOutput(const QString &configFolder, const QString &url,
                                         const QByteArray &commands);

} // namespace tolvane::test
