// SPDX-License-Identifier: MIT
#include "processtree.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QMultiHash>

#include <ctime>

namespace tolvane::peers {

namespace {

/// A file of a process in the proc file system; empty if the process has ended.
QByteArray proc(qint64 process, const char *name)
{
    QFile file(QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMultiHash<qint64, qint64> childrenOfAll()
{
    QMultiHash<qint64, qint64> children;
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        bool isProcess = false;
        const qint64 process = name.toLongLong(&isProcess);
        // The program's name, in parentheses, may contain spaces. State and parent follow.
        const QByteArray stat = isProcess ? proc(process, "stat") : QByteArray();
        const QByteArrayList fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        if (fields.size() > 1)
            children.insert(fields.at(1).toLongLong(), process);
    }
    return children;
}

} // namespace

QList<qint64> ProcessTree::processes() const
{
    const QMultiHash<qint64, qint64> children = childrenOfAll();
    QList<qint64> found = {m_root};
    for (qsizetype at = 0; at < found.size(); ++at)
        found += children.values(found.at(at));
    return found;
}

int ProcessTree::threads() const
{
    qsizetype count = 0;
    for (const qint64 process : processes()) {
        const QDir tasks(QStringLiteral("/proc/%1/task").arg(process));
        count += tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    }
    return int(count);
}

double ProcessTree::mebibytes() const
{
    double kibibytes = 0;
    for (const qint64 process : processes()) {
        for (const QByteArray &line : proc(process, "smaps_rollup").split('\n')) {
            if (line.startsWith("Pss:"))
                kibibytes += line.simplified().split(' ').at(1).toDouble();
        }
    }
    return kibibytes / 1024;
}

double ProcessTree::processorMilliseconds() const
{
    double sum = 0;
    for (const qint64 process : processes()) {
        clockid_t clock{};
        timespec time{};
        if (clock_getcpuclockid(pid_t(process), &clock) == 0 && clock_gettime(clock, &time) == 0)
            sum += double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }
    return sum;
}

QSet<QString> ProcessTree::files() const
{
    QSet<QString> files;
    for (const qint64 process : processes()) {
        for (const QByteArray &line : proc(process, "maps").split('\n')) {
            const qsizetype begin = line.indexOf('/');
            if (begin >= 0)
                files += QFile::decodeName(line.mid(begin));
        }
    }
    return files;
}

} // namespace tolvane::peers
