// SPDX-License-Identifier: MIT
#pragma once

#include "testing/process.h"

namespace tolvane::test {

/// Runs the local backend on a free port.
class BackendProgram
{
public:
    /// @param folder the data remain there when the program ends; empty for data in memory
    explicit BackendProgram(const QString &folder = {},
                            const QString &replyDelay = QStringLiteral("0.2"),
                            const QStringList &moreArguments = {});

    QString url() const { return m_url; }
    quint16 port() const;

    /// Kills the process, like a crash.
    void kill() { m_process.kill(); }

private:
    Process m_process;
    QString m_url;
};

} // namespace tolvane::test
