// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QProcess>

namespace tolvane::test {

/// The local backend on a free port, its data in a folder that stays when it ends.
class BackendProgram
{
public:
    explicit BackendProgram(const QString &folder,
                            const QString &replyDelay = QStringLiteral("0.2"),
                            const QStringList &moreArguments = {});
    ~BackendProgram();

    QString url() const { return m_url; }
    quint16 port() const;

    /// Ends it where it stands, as a crash does.
    void kill();

private:
    QProcess m_process;
    QString m_url;
};

} // namespace tolvane::test
