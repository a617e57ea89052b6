// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Measures what a host pays for linking the messenger, before it opens it: the processor time and
/// the memory of a process that starts, less those of the same process without the messenger.
void measureLinking(Figures &figures);

} // namespace tolvane::bench
