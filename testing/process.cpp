// SPDX-License-Identifier: MIT
#include "testing/process.h"

#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>

namespace tolvane::test {

namespace {

int milliseconds(std::chrono::milliseconds duration)
{
    return static_cast<int>(duration.count());
}

} // namespace

Process::Process(const QString &program, const QStringList &arguments, const Options &options)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (auto entry = options.environment.cbegin(); entry != options.environment.cend(); ++entry)
        environment.insert(entry.key(), entry.value());
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(options.channels);
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_process.start(program, arguments);
    if (!m_process.waitForStarted(milliseconds(timeout)))
        throw std::runtime_error(
            (program + QLatin1String(": ") + m_process.errorString()).toStdString());
}

Process::~Process()
{
    if (!isRunning())
        return;
    terminate();
    if (!m_process.waitForFinished(milliseconds(timeout)))
        kill();
}

void Process::write(const QByteArray &bytes)
{
    m_process.write(bytes);
    m_process.waitForBytesWritten(milliseconds(timeout));
}

std::optional<QByteArray> Process::nextLine(QDeadlineTimer deadline)
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return std::nullopt;
    }
    QByteArray line = m_process.readLine();
    line.chop(1);
    return line;
}

QByteArray Process::readLine()
{
    if (auto line = nextLine())
        return *line;
    throw std::runtime_error(m_process.program().toStdString() + " prints no line");
}

int Process::waitForExit(std::chrono::milliseconds longest)
{
    m_process.closeWriteChannel();
    if (isRunning() && !m_process.waitForFinished(milliseconds(longest)))
        return -1;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

void Process::kill()
{
    m_process.kill();
    m_process.waitForFinished(milliseconds(timeout));
}

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    Process process(program, arguments);
    if (process.waitForExit(std::chrono::minutes(10)) != 0)
        throw std::runtime_error(
            (program + QLatin1Char(' ') + arguments.join(QLatin1Char(' '))).toStdString() +
            " failed");
    return process.output();
}

} // namespace tolvane::test
