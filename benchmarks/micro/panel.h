// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records the costs of the panel over a desktop host: the frames per second that it adds while all
/// is idle ("idle frames with the panel"), and the processor time of the process, in ms, for
/// - the first frame of either form ("opening the panel", "opening the full form"),
/// - a frame while the host animates ("host's frame ..."): alone, with a conversation that stands
///   still or scrolls in the panel, and with a plain list of bubbles in the panel's place.
///
/// Qt Quick draws whole windows. Without a graphics processor each pixel of the panel takes
/// processor time, so that the host alone as a baseline would only tell how large the panel is.
/// Needs a display.
void measurePanel(Figures &figures);

} // namespace tolvane::bench
