// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <ctime>

namespace tolvane::bench {

/// What the calling thread has worked so far. Whatever else keeps the machine busy, waiting
/// included, does not count.
inline double threadMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// The most memory that this process has had so far.
inline double peakMebibytes()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no figures of this process");
    const QRegularExpression peak(QStringLiteral("VmHWM:\\s+(\\d+)"));
    return peak.match(QString::fromUtf8(file.readAll())).captured(1).toDouble() / 1024;
}

} // namespace tolvane::bench
