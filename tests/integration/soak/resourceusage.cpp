// SPDX-License-Identifier: MIT
#include "resourceusage.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>
#include <cstdio>
#include <malloc.h>

namespace tolvane::soak {

namespace {

/// Allocated and not freed, in kibibytes.
qint64 heap()
{
    malloc_trim(0);
    const auto info = mallinfo2();
    return static_cast<qint64>((info.uordblks + info.hblkhd) / 1024);
}

/// The pages in memory that no other process shares, in kibibytes.
qint64 privateMemory()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    qint64 sum = 0;
    for (const QByteArray &line :
         file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QByteArrayList()) {
        if (line.startsWith("Private_"))
            sum += line.simplified().split(' ').at(1).toLongLong();
    }
    return sum;
}

qint64 countIn(const char *folder)
{
    return QDir(QString::fromLatin1(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

struct Resource
{
    const char *name;
    qint64 (*measure)();
    /// The tolerance: a part of the usage, plus an amount.
    int percent;
    qint64 amount;
};

// The caches of pictures grow by two kibibytes in a round, and do not reach their limits. Qt
// remembers the name of each accessible QML type of each engine, another five. Allocators keep
// pages.
constexpr Resource resources[] = {
    {"heap, KiB", heap, 1, 256},
    {"private memory, KiB", privateMemory, 3, 2048},
    {"open files", [] { return countIn("/proc/self/fd"); }, 0, 2},
    {"threads", [] { return countIn("/proc/self/task"); }, 0, 2},
};

qint64 median(const QList<ResourceUsage> &samples, std::size_t resource)
{
    QList<qint64> values;
    for (const ResourceUsage &sample : samples)
        values += sample.at(resource);
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

} // namespace

ResourceUsage resourceUsage()
{
    ResourceUsage usage;
    std::ranges::transform(resources, usage.begin(), [](auto &each) { return each.measure(); });
    return usage;
}

bool hasGrown(const QList<ResourceUsage> &samples)
{
    const QList<ResourceUsage> warm = samples.mid(samples.size() / 4);
    const qsizetype third = warm.size() / 3;
    bool hasGrown = false;
    std::printf("\n%-22s %12s %12s %12s\n", "", "warm", "at the end", "limit");
    for (std::size_t i = 0; i < std::size(resources); ++i) {
        const qint64 early = median(warm.first(third), i);
        const qint64 late = median(warm.last(third), i);
        const qint64 limit = early + early * resources[i].percent / 100 + resources[i].amount;
        hasGrown = hasGrown || late > limit;
        std::printf("%-22s %12lld %12lld %12lld%s\n", resources[i].name, early, late, limit,
                    late > limit ? "  GROWS" : "");
    }
    return hasGrown;
}

} // namespace tolvane::soak
