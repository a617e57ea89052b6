// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records what the conversation's screen costs the main thread (ms), how many delegates it has and
/// how much memory it takes (MiB), for a short and a long conversation, and the same of plain
/// lists. Needs a display.
void measureConversation(Figures &figures);

} // namespace tolvane::bench
