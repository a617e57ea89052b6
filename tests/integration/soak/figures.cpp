// SPDX-License-Identifier: MIT
#include "figures.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>
#include <array>
#include <cstdio>
#include <malloc.h>

namespace tolvane::soak {

namespace {

struct Figure
{
    const char *name;
    qint64 Sample::*value;
    /// What it may grow by: so many hundredths, and so much.
    int percent;
    qint64 amount;
};

// The library keeps what it has decoded, in bounds that an hour does not reach: about a kibibyte a
// picture. Allocators keep pages.
constexpr std::array figures = {
    Figure{"heap, KiB", &Sample::heap, 1, 256},
    Figure{"unique memory, KiB", &Sample::unique, 3, 2048},
    Figure{"resident memory, KiB", &Sample::resident, 3, 2048},
    Figure{"open files", &Sample::files, 0, 2},
    Figure{"threads", &Sample::threads, 0, 2},
};

QByteArray contentOf(const char *path)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The sum of the values, in kibibytes, of the lines that begin with the name.
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

qint64 median(const QList<Sample> &samples, qint64 Sample::*value)
{
    QList<qint64> values;
    for (const Sample &sample : samples)
        values += sample.*value;
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

} // namespace

Sample Sample::now()
{
    malloc_trim(0);
    const auto info = mallinfo2();
    const QByteArray pages = contentOf("/proc/self/smaps_rollup");
    return {.heap = static_cast<qint64>((info.uordblks + info.hblkhd) / 1024),
            .unique = sumOf(pages, "Private_"),
            .resident = sumOf(pages, "Rss"),
            .files = countIn("/proc/self/fd"),
            .threads = countIn("/proc/self/task")};
}

void print(const Sample &sample, int round, double minute)
{
    if (round == 1)
        std::printf("%6s %8s %10s %10s %10s %6s %8s\n", "round", "minute", "heap", "unique",
                    "resident", "files", "threads");
    std::printf("%6d %8.1f %10lld %10lld %10lld %6lld %8lld\n", round, minute, sample.heap,
                sample.unique, sample.resident, sample.files, sample.threads);
    std::fflush(stdout);
}

bool isFlat(const QList<Sample> &samples)
{
    const QList<Sample> warm = samples.mid(samples.size() / 4);
    const qsizetype third = warm.size() / 3;
    bool isFlat = true;
    std::printf("\n%-22s %12s %12s %12s\n", "", "warm", "at the end", "may be");
    for (const Figure &figure : figures) {
        const qint64 early = median(warm.first(third), figure.value);
        const qint64 late = median(warm.last(third), figure.value);
        const qint64 bound = early + early * figure.percent / 100 + figure.amount;
        isFlat = isFlat && late <= bound;
        std::printf("%-22s %12lld %12lld %12lld%s\n", figure.name, early, late, bound,
                    late > bound ? "  GROWS" : "");
    }
    return isFlat;
}

} // namespace tolvane::soak
