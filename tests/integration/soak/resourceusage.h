// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>

namespace tolvane::soak {

/// The resources of this process at one moment. Sizes are in kibibytes.
struct ResourceUsage
{
    /// Allocated and not freed.
    qint64 heap = 0;
    /// Pages in memory that no other process shares.
    qint64 privateMemory = 0;
    /// All pages in memory.
    qint64 residentMemory = 0;
    qint64 openFiles = 0;
    qint64 threads = 0;

    /// Measures after the allocator has returned its unused pages.
    static ResourceUsage now();
};

/// The minimum number of samples for hasGrown().
inline constexpr qsizetype minimumSamples = 8;

/// Prints a line of a table; a header precedes the first round.
void print(const ResourceUsage &usage, int round, double minute);

/// Compares the samples of the end with those after the warm-up, by the medians of a third of them
/// each, and prints the result. Returns whether any resource has grown beyond its tolerance.
bool hasGrown(const QList<ResourceUsage> &samples);

} // namespace tolvane::soak
