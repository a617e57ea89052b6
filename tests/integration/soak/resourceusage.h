// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>

#include <array>

namespace tolvane::soak {

/// Resources in use by this process at one moment: memory, open files and threads.
using ResourceUsage = std::array<qint64, 4>;

ResourceUsage resourceUsage();

/// The minimum number of samples for hasGrown().
inline constexpr qsizetype minimumSamples = 8;

/// Compares the samples of the end with those after the warm-up, by the medians of a third of them
/// each, and prints the result. Returns whether any resource has grown beyond its tolerance.
bool hasGrown(const QList<ResourceUsage> &samples);

} // namespace tolvane::soak
