// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records what the home screen costs a host that is running: time to its first frame, frames while
/// its list is flung, memory. Beside it, what an interface costs that has nothing but rectangles
/// and texts. Needs a display with OpenGL.
void measureHomeScreen(Figures &figures);

} // namespace tolvane::bench
