// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace tolvane::bench {

/// A limit on the ratio of two measurements of one run: subject / baseline <= limit. Without a
/// baseline the limit applies to the subject itself.
struct Requirement
{
    std::string name;
    std::string subject;
    std::string baseline;
    double limit;
    const char *unit;
};

/// Prints the results like Google Benchmark, and keeps the minimum time of each benchmark in
/// milliseconds, because noise only adds time.
class Figures final : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;

    /// Adds a measurement that Google Benchmark has not made.
    void record(const std::string &name, double figure);

    /// Prints a table. Returns whether all requirements are met.
    bool check(const std::vector<Requirement> &requirements) const;

    /// Returns NaN for a name without a measurement.
    double figure(const std::string &name) const;

private:
    std::map<std::string, double> m_figures;
};

} // namespace tolvane::bench
