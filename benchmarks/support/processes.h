// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace tolvane::bench {

/// A program that runs as long as this lives.
class Program
{
public:
    Program(const QString &path, const QStringList &arguments);
    ~Program();

    /// The next line of its output. Ends the benchmark with a message when there is none in time.
    QString readLine();
    void write(const QByteArray &line);
    qint64 pid() const { return m_process.processId(); }

private:
    QProcess m_process;
};

/// What a program says that runs to its end. Ends the benchmark with a message when it fails.
QByteArray outputOf(const QString &path, const QStringList &arguments);

/// The local backend on a free port, with nothing stored.
class Backend
{
public:
    Backend();
    QString url() const { return m_url; }

private:
    Program m_program;
    QString m_url;
};

} // namespace tolvane::bench
