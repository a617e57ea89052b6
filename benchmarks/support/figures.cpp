// SPDX-License-Identifier: MIT
#include "figures.h"

#include <QtCore/QByteArrayList>

#include <algorithm>
#include <cmath>

namespace tolvane::bench {

namespace {

std::vector<double> sorted(std::vector<double> values)
{
    std::ranges::sort(values);
    return values;
}

Figure figureOf(double value, double distance)
{
    return {value, value == 0 ? 0 : std::abs(distance / value)};
}

constexpr Figure nothing{NAN, NAN};

} // namespace

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

void Figures::record(const std::string &name, double measurement)
{
    m_measurements[name].push_back(measurement);
}

Figure Figures::minimum(const std::string &name) const
{
    const auto found = m_measurements.find(name);
    if (found == m_measurements.end())
        return nothing;
    const std::vector<double> values = sorted(found->second);
    return figureOf(values.front(), values[values.size() / 2] - values.front());
}

Figure Figures::median(const std::string &name) const
{
    const auto found = m_measurements.find(name);
    if (found == m_measurements.end())
        return nothing;
    const std::vector<double> values = sorted(found->second);
    return figureOf(values[values.size() / 2], values.back() - values.front());
}

std::vector<Number> numbersIn(const QByteArray &output)
{
    std::vector<Number> numbers;
    for (const QByteArray &line : output.split('\n')) {
        const QByteArrayList parts = line.split(':');
        if (parts.size() == 2)
            numbers.emplace_back(parts.at(0).toStdString(), parts.at(1).toDouble());
    }
    return numbers;
}

} // namespace tolvane::bench
