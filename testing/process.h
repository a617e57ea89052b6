// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QMap>
#include <QtCore/QProcess>

#include <chrono>
#include <optional>

namespace tolvane::test {

/// A running program. The destructor terminates it; the system terminates it when this process
/// crashes. Operations that wait do not run the event loop, and fail after a timeout.
class Process
{
public:
    /// Long enough for a sanitized program on a busy machine.
    static constexpr std::chrono::milliseconds timeout = std::chrono::seconds(20);

    struct Options
    {
        /// Environment variables that the program gets in addition to those of this process.
        QMap<QString, QString> environment = {};
        /// By default the program's standard error is this process's.
        QProcess::ProcessChannelMode channels = QProcess::ForwardedErrorChannel;
    };

    /// Starts the program. Throws std::runtime_error if that fails.
    Process(const QString &program, const QStringList &arguments, const Options &options);
    Process(const QString &program, const QStringList &arguments)
        : Process(program, arguments, Options())
    {
    }
    ~Process();
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;

    qint64 id() const { return m_process.processId(); }
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }

    void write(const QByteArray &bytes);
    /// Waits for the next line of the output, and returns it without its newline. Returns nullopt
    /// at the deadline and at the end of the output.
    std::optional<QByteArray> nextLine(QDeadlineTimer deadline = QDeadlineTimer(timeout));
    /// The same; throws std::runtime_error instead of returning nullopt.
    QByteArray readLine();

    /// Closes the program's input and waits for its end. Returns the exit code; -1 after a timeout
    /// or a crash.
    int waitForExit(std::chrono::milliseconds longest = timeout);
    /// Sends SIGTERM.
    void terminate() { m_process.terminate(); }
    /// Sends SIGKILL, like a crash, and waits for the end.
    void kill();

    /// The output that has not been read as lines.
    QByteArray output() { return m_process.readAllStandardOutput(); }
    /// The standard error; QProcess::SeparateChannels collects it.
    QByteArray errors() { return m_process.readAllStandardError(); }

private:
    QProcess m_process;
};

/// Runs a program to its end and returns its output. Throws std::runtime_error if it fails.
QByteArray outputOf(const QString &program, const QStringList &arguments);

} // namespace tolvane::test
