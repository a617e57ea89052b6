// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records the number of allocations for a picture in the memory cache ("allocations for a picture
/// in memory").
void measureAllocations(Figures &figures);

} // namespace tolvane::bench
