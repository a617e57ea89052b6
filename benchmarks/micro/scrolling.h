// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records what a thousand thumbnails cost that are scrolled through, over rectangles in their
/// place: the main thread's time for one ("thumbnail on main thread", ms) and the peak of the
/// process's memory ("thumbnails' memory", MiB). Needs a display.
void measureScrolling(Figures &figures);

} // namespace tolvane::bench
