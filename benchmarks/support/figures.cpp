// SPDX-License-Identifier: MIT
#include "figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tolvane::bench {

void Figures::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
        record(run.run_name.function_name, seconds * 1000);
    }
    ConsoleReporter::ReportRuns(runs);
}

void Figures::record(const std::string &name, double figure)
{
    const auto [entry, isNew] = m_figures.emplace(name, figure);
    if (!isNew)
        entry->second = std::min(entry->second, figure);
}

double Figures::figure(const std::string &name) const
{
    const auto found = m_figures.find(name);
    return found == m_figures.end() ? std::nan("") : found->second;
}

bool Figures::check(const std::vector<Requirement> &requirements) const
{
    bool areAllMet = true;
    std::printf("\n");
    for (const Requirement &requirement : requirements) {
        const double base = requirement.baseline.empty() ? 1 : figure(requirement.baseline);
        const double result = figure(requirement.subject) / base;
        const bool isMet = result <= requirement.limit; // False for NaN.
        areAllMet = areAllMet && isMet;
        std::printf("%-60s %8.3f %-10s at most %-5g %s\n", requirement.name.c_str(), result,
                    requirement.unit, requirement.limit, isMet ? "met" : "MISSED");
    }
    return areAllMet;
}

} // namespace tolvane::bench
