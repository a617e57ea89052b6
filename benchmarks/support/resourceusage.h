// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <ctime>
#include <malloc.h>

namespace tolvane::bench {

/// The processor time of the calling thread in ms. It does not depend on other threads and
/// processes.
inline double threadMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// The processor time of all threads of this process since its start, in ms.
inline double processMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// The peak memory of this process in MiB.
inline double peakMebibytes()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read the memory usage");
    const QRegularExpression peak(QStringLiteral("VmHWM:\\s+(\\d+)"));
    return peak.match(QString::fromUtf8(file.readAll())).captured(1).toDouble() / 1024;
}

/// The private memory of this process in MiB, without unused pages of the allocator.
struct PrivateMemory
{
    /// Pages that are not in a file.
    double changed = 0;
    /// Pages of our own libraries. Those of other libraries become private and shared as other
    /// processes start and end.
    double ofOurLibraries = 0;

    double sum() const { return changed + ofOurLibraries; }
};

inline PrivateMemory privateMebibytes()
{
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/smaps"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read the memory usage");
    PrivateMemory memory;
    bool isOurs = false;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QByteArrayList words = line.simplified().split(' ');
        if (words.size() > 4)
            isOurs = line.contains("libTolvane");
        else if (line.startsWith("Private_Dirty:"))
            memory.changed += words.at(1).toDouble() / 1024;
        else if (isOurs && line.startsWith("Private_Clean:"))
            memory.ofOurLibraries += words.at(1).toDouble() / 1024;
    }
    return memory;
}

} // namespace tolvane::bench
