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

QByteArray outputOf(const QString &path, const QStringList &arguments)
{
    constexpr int patience = 600'000;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(path, arguments);
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        qFatal("%s %s failed", qPrintable(path), qPrintable(arguments.join(QLatin1Char(' '))));
    return process.readAllStandardOutput();
}

Backend::Backend()
    : m_program(QStringLiteral(TOLVANE_BACKEND),
                {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--db"),
                 QStringLiteral(":memory:")})
    , m_url(m_program.readLine().section(QLatin1Char(' '), -1))
{
}

} // namespace tolvane::bench
