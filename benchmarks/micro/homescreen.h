// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records the costs of the home screen in a running host: the time to its first frame, the frames
/// while its list is flung, and its memory. Also records those of a minimal interface with only
/// rectangles and texts. Needs a display with OpenGL.
void measureHomeScreen(Figures &figures);

} // namespace tolvane::bench
