// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

/// How often this process has allocated memory so far, in any thread.
int allocations();

/// The same of what may be a picture: more than a quarter of a mebibyte at once.
int largeAllocations();

} // namespace tolvane::bench
