// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records the peak memory of the console host idle after its start ("idle console memory", MiB),
/// of a program that has made one request ("idle baseline memory", MiB), and how often any of the
/// console's threads woke up within three seconds ("idle console wake-ups").
void measureIdle(Figures &figures);

} // namespace tolvane::bench
