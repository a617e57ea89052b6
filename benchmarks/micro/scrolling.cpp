// SPDX-License-Identifier: MIT
#include "scrolling.h"

#include "benchmarks/support/figures.h"
#include "benchmarks/support/processes.h"

#include <algorithm>

namespace tolvane::bench {

namespace {

struct Cost
{
    double milliseconds;
    double mebibytes;
};

Cost costOf(const QStringList &arguments)
{
    const QList<QByteArray> numbers =
        outputOf(QStringLiteral(TOLVANE_THUMBNAIL_HOST), arguments).simplified().split(' ');
    return {numbers.constFirst().toDouble(), numbers.constLast().toDouble()};
}

/// Of several runs: noise only ever adds.
Cost leastCostOf(const QStringList &arguments)
{
    Cost least = costOf(arguments);
    for (int run = 1; run < 3; ++run) {
        const Cost cost = costOf(arguments);
        least.milliseconds = std::min(least.milliseconds, cost.milliseconds);
        least.mebibytes = std::min(least.mebibytes, cost.mebibytes);
    }
    return least;
}

} // namespace

void measureScrolling(Figures &figures)
{
    const Cost plain = leastCostOf({QStringLiteral("plain")});
    const Cost pictures = leastCostOf({});
    figures.record("thumbnail on main thread", pictures.milliseconds - plain.milliseconds);
    figures.record("thumbnails' memory", pictures.mebibytes - plain.mebibytes);
}

} // namespace tolvane::bench
