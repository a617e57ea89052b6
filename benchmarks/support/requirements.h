// SPDX-License-Identifier: MIT
#pragma once

#include "figures.h"

#include <QtCore/QString>

#include <optional>
#include <vector>

namespace tolvane::bench {

/// A limit on the ratio of two figures of one run, subject / baseline. Without a baseline the limit
/// applies to the subject itself, and the requirement has a reason for that. A run fails beyond a
/// limit; a goal is what is aimed at.
struct Requirement
{
    const char *name;
    /// The unit of the subject and its baseline. The median counts for memory ("MiB", "KiB"), the
    /// minimum for everything else.
    const char *unit;
    double limit;
    const char *subject;
    const char *baseline;
    const char *reason;
    std::optional<double> goal = {};
};

/// The result of one run for one requirement.
struct Outcome
{
    Requirement requirement;
    Figure subject;
    /// NaN for a limit without a baseline.
    Figure baseline;
    /// The figure that is compared with the limit: the ratio, or else the subject.
    Figure result;

    bool isMet() const { return result.value <= requirement.limit; } // False for NaN.
};

/// The outcomes of all requirements.
std::vector<Outcome> outcomesOf(const Figures &figures);

bool areAllMet(const std::vector<Outcome> &outcomes);
void print(const std::vector<Outcome> &outcomes);

/// Writes the outcomes, the machine and the versions as a section of a page of Markdown. Returns
/// whether that has succeeded.
bool writePage(const std::vector<Outcome> &outcomes, const QString &fileName);

/// Saves the results and their spread as JSON, for compare(). Returns whether that has succeeded.
bool save(const std::vector<Outcome> &outcomes, const QString &fileName);

/// Prints what has changed since a run that was saved. Returns whether no result is missing or
/// worse by more than the spread of both runs; false for a file that cannot be read.
bool compare(const std::vector<Outcome> &outcomes, const QString &fileName);

} // namespace tolvane::bench
