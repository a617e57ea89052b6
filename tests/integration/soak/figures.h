// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>

namespace tolvane::soak {

/// What this process holds at one moment. Sizes are in kibibytes.
struct Sample
{
    /// What was allocated and not freed.
    qint64 heap = 0;
    /// Pages that are this process's alone, and all that it has in memory.
    qint64 unique = 0;
    qint64 resident = 0;
    qint64 files = 0;
    qint64 threads = 0;

    /// After all that can be given back has been.
    static Sample now();
};

/// It takes so many to tell.
inline constexpr qsizetype fewestRounds = 8;

void print(const Sample &sample, int round, double minute);

/// Compares the samples of the end with those after the warm-up, the medians of a third each, and
/// prints them. False where more has grown than may.
bool isFlat(const QList<Sample> &samples);

} // namespace tolvane::soak
