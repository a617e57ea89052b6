// SPDX-License-Identifier: MIT
#include "consoleprogram.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QJsonDocument>

namespace tolvane::test {

namespace {

constexpr int timeout = 20'000; // Sanitized programs are slow on a busy machine.

void startConsole(QProcess &process, const QString &configFolder, const QString &url,
                  const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configFolder);
    environment.insert(QStringLiteral("TOLVANE_API_URL"), url);
    environment.insert(QStringLiteral("LANGUAGE"), QStringLiteral("en"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TOLVANE_CONSOLE), arguments);
}

int exitStatus(QProcess &process, int longest)
{
    process.closeWriteChannel();
    if (!process.waitForFinished(longest))
        return -1;
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

} // namespace

ConsoleProgram::ConsoleProgram(const QString &configFolder, const QString &url)
{
    startConsole(m_process, configFolder, url, {QStringLiteral("--json")});
}

void ConsoleProgram::send(const QByteArray &line)
{
    m_process.write(line + '\n');
}

QJsonObject ConsoleProgram::await(const std::function<bool(const QJsonObject &)> &matches)
{
    const QDeadlineTimer deadline(timeout);
    for (qsizetype seen = 0;;) {
        while (m_process.canReadLine())
            m_unread += QJsonDocument::fromJson(m_process.readLine()).object();
        for (; seen < m_unread.size(); ++seen) {
            if (matches(m_unread.at(seen)))
                return m_unread.takeAt(seen);
        }
        if (deadline.hasExpired() ||
            (m_process.state() == QProcess::NotRunning && !m_process.canReadLine()))
            return {};
        m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
    }
}

QJsonObject ConsoleProgram::request(const QString &command, QJsonObject arguments)
{
    const int id = ++m_lastId;
    arguments.insert(QStringLiteral("id"), id);
    arguments.insert(QStringLiteral("cmd"), command);
    send(QJsonDocument(arguments).toJson(QJsonDocument::Compact));
    return await(
        [id](const QJsonObject &line) { return line.value(QLatin1String("reply")).toInt() == id; });
}

QJsonObject ConsoleProgram::awaitEvent(const QString &event, const QString &name)
{
    return await([&](const QJsonObject &line) {
        return line.value(QLatin1String("event")).toString() == event &&
               line.value(QLatin1String("name")).toString() == name;
    });
}

int ConsoleProgram::end()
{
    return exitStatus(m_process, timeout);
}

std::pair<QByteArray, int> sessionOutput(const QString &configFolder, const QString &url,
                                         const QByteArray &commands)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    startConsole(process, configFolder, url, {});
    process.write(commands);
    const int status = exitStatus(process, 3 * timeout);
    return {process.readAll(), status};
}

} // namespace tolvane::test
