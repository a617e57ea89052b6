// SPDX-License-Identifier: MIT
#include "soak.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>
#include <array>
#include <cstdio>
#include <malloc.h>

namespace tolvane::soak {

namespace {

struct Resource
{
    const char *name;
    qint64 ResourceUsage::*usage;
    /// The tolerance: a part of the usage, plus an amount.
    int percent;
    qint64 amount;
};

// The caches of decoded pictures grow by about a kibibyte for each picture; an hour does not reach
// their limits. Allocators keep pages.
constexpr std::array resources = {
    Resource{"heap, KiB", &ResourceUsage::heap, 1, 256},
    Resource{"private memory, KiB", &ResourceUsage::privateMemory, 3, 2048},
    Resource{"resident memory, KiB", &ResourceUsage::residentMemory, 3, 2048},
    Resource{"open files", &ResourceUsage::openFiles, 0, 2},
    Resource{"threads", &ResourceUsage::threads, 0, 2},
};

QByteArray contentOf(const char *path)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The sum of the numbers in the lines that begin with the name.
qint64 sumOf(const QByteArray &lines, const QByteArray &name)
{
    qint64 sum = 0;
    for (const QByteArray &line : lines.split('\n')) {
        if (line.startsWith(name))
            sum +=
                line.mid(line.indexOf(':') + 1).simplified().split(' ').constFirst().toLongLong();
    }
    return sum;
}

qsizetype countIn(const char *folder)
{
    return QDir(QString::fromLatin1(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

qint64 median(const QList<ResourceUsage> &samples, qint64 ResourceUsage::*usage)
{
    QList<qint64> values;
    for (const ResourceUsage &sample : samples)
        values += sample.*usage;
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

} // namespace

ResourceUsage ResourceUsage::now()
{
    malloc_trim(0);
    const auto info = mallinfo2();
    const QByteArray pages = contentOf("/proc/self/smaps_rollup");
    return {.heap = static_cast<qint64>((info.uordblks + info.hblkhd) / 1024),
            .privateMemory = sumOf(pages, "Private_"),
            .residentMemory = sumOf(pages, "Rss"),
            .openFiles = countIn("/proc/self/fd"),
            .threads = countIn("/proc/self/task")};
}

void print(const ResourceUsage &usage, int round, double minute)
{
    if (round == 1)
        std::printf("%6s %8s %10s %10s %10s %6s %8s\n", "round", "minute", "heap", "private",
                    "resident", "files", "threads");
    std::printf("%6d %8.1f %10lld %10lld %10lld %6lld %8lld\n", round, minute, usage.heap,
                usage.privateMemory, usage.residentMemory, usage.openFiles, usage.threads);
    std::fflush(stdout);
}

bool hasGrown(const QList<ResourceUsage> &samples)
{
    const QList<ResourceUsage> warm = samples.mid(samples.size() / 4);
    const qsizetype third = warm.size() / 3;
    bool hasGrown = false;
    std::printf("\n%-22s %12s %12s %12s\n", "", "warm", "at the end", "limit");
    for (const Resource &resource : resources) {
        const qint64 early = median(warm.first(third), resource.usage);
        const qint64 late = median(warm.last(third), resource.usage);
        const qint64 limit = early + early * resource.percent / 100 + resource.amount;
        hasGrown = hasGrown || late > limit;
        std::printf("%-22s %12lld %12lld %12lld%s\n", resource.name, early, late, limit,
                    late > limit ? "  GROWS" : "");
    }
    return hasGrown;
}

} // namespace tolvane::soak
