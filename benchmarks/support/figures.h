// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace tolvane::bench {

/// What is promised: subject / baseline <= bound, both of one run; without a baseline, subject <=
/// bound.
struct Promise
{
    std::string what;
    std::string subject;
    std::string baseline;
    double bound;
    const char *unit;
};

/// Prints what Google Benchmark prints, and keeps the least time of each benchmark, in
/// milliseconds: on a shared machine noise only ever adds.
class Figures final : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;

    /// Adds a figure that was not measured by Google Benchmark.
    void record(const std::string &name, double figure);

    /// Prints a table and tells whether all promises were kept.
    bool check(const std::vector<Promise> &promises) const;

    /// NaN for what was not measured.
    double figure(const std::string &name) const;

private:
    std::map<std::string, double> m_figures;
};

} // namespace tolvane::bench
