// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::bench {

class Figures;

/// Records how often memory is allocated for a picture that is at hand ("allocations for a picture
/// in memory").
void measureAllocations(Figures &figures);

} // namespace tolvane::bench
