// SPDX-License-Identifier: MIT
#include "scrolling.h"

#include "benchmarks/support/figures.h"
#include "testing/process.h"

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
        test::outputOf(QStringLiteral(TOLVANE_THUMBNAIL_HOST), arguments).simplified().split(' ');
    return {numbers.constFirst().toDouble(), numbers.constLast().toDouble()};
}

/// The minimum of several runs, because noise only adds to the costs.
Cost minimumCostOf(const QStringList &arguments)
{
    Cost minimum = costOf(arguments);
    for (int run = 1; run < 3; ++run) {
        const Cost cost = costOf(arguments);
        minimum.milliseconds = std::min(minimum.milliseconds, cost.milliseconds);
        minimum.mebibytes = std::min(minimum.mebibytes, cost.mebibytes);
    }
    return minimum;
}

} // namespace

void measureScrolling(Figures &figures)
{
    const Cost plain = minimumCostOf({QStringLiteral("plain")});
    const Cost pictures = minimumCostOf({});
    figures.record("thumbnail on main thread", pictures.milliseconds - plain.milliseconds);
    figures.record("thumbnails' memory", pictures.mebibytes - plain.mebibytes);
}

} // namespace tolvane::bench
