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

/// The memory of this process in MiB that is not in a file, without unused pages of the allocator.
/// Pages of files become private and shared as other processes start and end.
inline double privateMebibytes()
{
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/smaps"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read the memory usage");
    double kibibytes = 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("Private_Dirty:"))
            kibibytes += line.simplified().split(' ').at(1).toDouble();
    }
    return kibibytes / 1024;
}

} // namespace tolvane::bench
