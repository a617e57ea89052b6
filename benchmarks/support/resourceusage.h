// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <ctime>

namespace tolvane::bench {

/// The processor time of the calling thread in ms. It does not depend on other threads and
/// processes.
inline double threadMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
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

} // namespace tolvane::bench
