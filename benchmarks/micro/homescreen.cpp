// SPDX-License-Identifier: MIT
#include "homescreen.h"

#include "benchmarks/support/figures.h"
#include "testing/process.h"

#include <algorithm>
#include <vector>

namespace tolvane::bench {

namespace {

std::vector<Number> numbersOf(const QString &scenario)
{
    return numbersIn(test::outputOf(QStringLiteral(TOLVANE_HOME_HOST), {scenario}));
}

/// Records the slowest frame. Takes the minimum of two equal passes for each frame, because noise
/// only adds time.
void measureFlings(Figures &figures, const QString &scenario)
{
    std::vector<Number> frames = numbersOf(scenario);
    const std::vector<Number> others = numbersOf(scenario);
    frames.resize(std::min(frames.size(), others.size()));
    for (std::size_t at = 0; at < frames.size(); ++at)
        frames[at].second = std::min(frames[at].second, others[at].second);
    const Number slowest = *std::ranges::max_element(frames, {}, &Number::second);
    figures.record(slowest.first, slowest.second);
}

} // namespace

void measureHomeScreen(Figures &figures)
{
    for (const char *scenario :
         {"opening", "openingPlain", "loadingFew", "loadingMany", "refreshing", "reopening"}) {
        for (int run = 0; run < 3; ++run) {
            for (const auto &[name, number] : numbersOf(QString::fromLatin1(scenario)))
                figures.record(name, number);
        }
    }
    measureFlings(figures, QStringLiteral("flinging"));
    measureFlings(figures, QStringLiteral("flingingPlain"));
}

} // namespace tolvane::bench
