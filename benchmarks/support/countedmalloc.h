// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

/// The number of allocations of all threads since the start of the process.
int allocations();

/// The same for allocations of more than 256 KiB, such as pictures.
int largeAllocations();

} // namespace tolvane::bench
