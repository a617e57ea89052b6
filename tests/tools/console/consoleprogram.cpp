// SPDX-License-Identifier: MIT
#include "consoleprogram.h"

#include <QtCore/QJsonDocument>

namespace tolvane::test {

ConsoleProgram::ConsoleProgram(const QString &configFolder, const QString &url)
    : m_process(QStringLiteral(TOLVANE_CONSOLE), {QStringLiteral("--json")},
                {.environment = {{QStringLiteral("XDG_CONFIG_HOME"), configFolder},
                                 {QStringLiteral("TOLVANE_API_URL"), url},
                                 {QStringLiteral("LANGUAGE"), QStringLiteral("en")}},
                 .channels = QProcess::SeparateChannels})
{
}

void ConsoleProgram::send(const QByteArray &line)
{
    m_process.write(line + '\n');
}

QJsonObject ConsoleProgram::await(const std::function<bool(const QJsonObject &)> &matches)
{
    const QDeadlineTimer deadline(Process::timeout);
    for (qsizetype seen = 0;; ++seen) {
        if (seen == m_unread.size()) {
            const auto line = m_process.nextLine(deadline);
            if (!line)
                return {};
            m_unread += QJsonDocument::fromJson(*line).object();
        }
        if (matches(m_unread.at(seen)))
            return m_unread.takeAt(seen);
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

} // namespace tolvane::test
