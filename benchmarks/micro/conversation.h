// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records the main thread's time (ms), the delegates and the memory (MiB) of the conversation's
/// screen, for a short and a long conversation, and of plain lists. Needs a display.
void measureConversation(Figures &figures);

} // namespace tolvane::bench
