// SPDX-License-Identifier: MIT
#include "panel.h"

#include "benchmarks/support/figures.h"
#include "testing/process.h"

namespace tolvane::bench {

void measurePanel(Figures &figures)
{
    // The two sides of a ratio run in turns.
    for (int run = 0; run < 3; ++run) {
        for (const char *scenario : {"idling", "opening", "alone", "still", "scrolling", "plain"}) {
            for (const auto &[name, number] : numbersIn(test::outputOf(
                     QStringLiteral(TOLVANE_PANEL_HOST), {QString::fromLatin1(scenario)})))
                figures.record(name, number);
        }
    }
}

} // namespace tolvane::bench
