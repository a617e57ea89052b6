// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QProcess>

namespace tolvane::test {

/// Runs the local backend program on a free port. Its data stay in the folder when it ends.
class BackendProgram
{
public:
    explicit BackendProgram(const QString &folder,
                            const QString &replyDelay = QStringLiteral("0.2"),
                            const QStringList &moreArguments = {});
    ~BackendProgram();

    QString url() const { return m_url; }
    quint16 port() const;

    /// Kills the process, like a crash.
    void kill();

private:
    QProcess m_process;
    QString m_url;
};

} // namespace tolvane::test
