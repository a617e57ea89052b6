// SPDX-License-Identifier: MIT
#include "processes.h"

namespace tolvane::bench {

Program::Program(const QString &path, const QStringList &arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(path, arguments);
    if (!m_process.waitForStarted())
        qFatal("%s does not start", qPrintable(path));
}

Program::~Program()
{
    m_process.closeWriteChannel();
    m_process.terminate();
    m_process.waitForFinished();
}

QString Program::readLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(10'000))
            qFatal("%s says nothing", qPrintable(m_process.program()));
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

void Program::write(const QByteArray &line)
{
    m_process.write(line + '\n');
    m_process.waitForBytesWritten();
}

Backend::Backend()
    : m_program(QStringLiteral(TOLVANE_BACKEND),
                {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--db"),
                 QStringLiteral(":memory:")})
    , m_url(m_program.readLine().section(QLatin1Char(' '), -1))
{
}

} // namespace tolvane::bench
