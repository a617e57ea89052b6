// SPDX-License-Identifier: MIT
#pragma once

#include "testing/process.h"

#include <QtCore/QUrl>

namespace tolvane::test {

/// Runs the local backend on a free port.
class BackendProgram
{
public:
    /// @param folder the data remain there when the program ends; empty for data in memory
    explicit BackendProgram(const QString &folder = {},
                            const QString &replyDelay = QStringLiteral("0.2"),
                            const QStringList &moreArguments = {})
        : m_process(QStringLiteral(TOLVANE_BACKEND),
                    QStringList{QStringLiteral("--port"), QStringLiteral("0"),
                                QStringLiteral("--db"),
                                folder.isEmpty() ? QStringLiteral(":memory:")
                                                 : folder + QStringLiteral("/backend.sqlite"),
                                QStringLiteral("--reply-delay"), replyDelay} +
                        moreArguments)
        , m_url(QString::fromUtf8(m_process.readLine()).section(QLatin1Char(' '), -1))
    {
    }

    QString url() const { return m_url; }
    quint16 port() const { return static_cast<quint16>(QUrl(m_url).port()); }

    /// Kills the process, like a crash.
    void kill() { m_process.kill(); }

private:
    Process m_process;
    QString m_url;
};

} // namespace tolvane::test
