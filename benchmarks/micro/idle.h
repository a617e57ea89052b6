// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records the peak memory of the idle console host ("idle console memory", MiB), that of a program
/// that has sent one request ("idle baseline memory", MiB), and the number of times that threads of
/// the console woke up within three seconds ("idle console wake-ups").
void measureIdle(Figures &figures);

} // namespace tolvane::bench
