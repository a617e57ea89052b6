// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tolvane::bench {

/// A quantity that was measured several times in one run.
struct Figure
{
    double value;
    /// The spread of the measurements, relative to the value.
    double spread;
};

/// Prints the results like Google Benchmark, and keeps all measurements by name.
class Figures final : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;

    /// Adds a measurement that Google Benchmark has not made.
    void record(const std::string &name, double measurement);

    /// The minimum: noise only adds to times and counts. The spread reaches to the median. Both are
    /// NaN for a name without a measurement.
    Figure minimum(const std::string &name) const;

    /// The median, for memory: noise adds to and takes from a difference of two amounts. The spread
    /// reaches from the minimum to the maximum.
    Figure median(const std::string &name) const;

private:
    std::map<std::string, std::vector<double>> m_measurements;
};

/// A number that a program has printed, and its name.
using Number = std::pair<std::string, double>;

/// The numbers in lines "NAME: NUMBER".
std::vector<Number> numbersIn(const QByteArray &output);

} // namespace tolvane::bench
