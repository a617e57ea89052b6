// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records the cost of scrolling through a thousand thumbnails, compared with rectangles: the main
/// thread's time for each ("thumbnail on main thread", ms) and the peak memory of the process
/// ("thumbnails' memory", MiB). Needs a display.
void measureScrolling(Figures &figures);

} // namespace tolvane::bench
