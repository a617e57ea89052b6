// SPDX-License-Identifier: MIT
#include "testing/backendprogram.h"

#include <QtCore/QUrl>

#include <csignal>
#include <sys/prctl.h>

namespace tolvane::test {

namespace {

constexpr int timeout = 20'000; // Sanitized programs are slow on a busy machine.

} // namespace

BackendProgram::BackendProgram(const QString &folder, const QString &replyDelay,
                               const QStringList &moreArguments)
{
    const QStringList arguments = {
        QStringLiteral("--port"),        QStringLiteral("0"),
        QStringLiteral("--db"),          folder + QStringLiteral("/backend.sqlite"),
        QStringLiteral("--reply-delay"), replyDelay};
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // Ends the backend when the test crashes.
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_process.start(QStringLiteral(TOLVANE_BACKEND), arguments + moreArguments);
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(timeout))
            qFatal("The backend does not start");
    }
    m_url = QString::fromUtf8(m_process.readLine()).trimmed().section(QLatin1Char(' '), -1);
}

BackendProgram::~BackendProgram()
{
    m_process.terminate();
    m_process.waitForFinished(timeout);
}

quint16 BackendProgram::port() const
{
    return static_cast<quint16>(QUrl(m_url).port());
}

void BackendProgram::kill()
{
    m_process.kill();
    m_process.waitForFinished(timeout);
}

} // namespace tolvane::test
