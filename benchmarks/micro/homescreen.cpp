// SPDX-License-Identifier: MIT
#include "homescreen.h"

#include "benchmarks/support/figures.h"
#include "testing/process.h"

#include <QtCore/QMap>

#include <algorithm>

namespace tolvane::bench {

namespace {

/// The numbers that a host has printed, in order, by name.
using Numbers = QMap<QByteArray, QList<double>>;

Numbers numbersOf(const QString &scenario)
{
    const QByteArray output = test::outputOf(QStringLiteral(TOLVANE_HOME_HOST), {scenario});
    Numbers numbers;
    for (const QByteArray &line : output.split('\n')) {
        const QByteArrayList parts = line.split(':');
        if (parts.size() == 2)
            numbers[parts.at(0)] += parts.at(1).toDouble();
    }
    return numbers;
}

/// The minimum of each number in several runs, because noise only adds time.
Numbers minimumOf(const QString &scenario, int runs)
{
    Numbers minimum = numbersOf(scenario);
    for (int run = 1; run < runs; ++run) {
        const Numbers others = numbersOf(scenario);
        for (auto numbers = minimum.begin(); numbers != minimum.end(); ++numbers) {
            const QList<double> other = others.value(numbers.key());
            numbers->resize(std::min(numbers->size(), other.size()));
            std::ranges::transform(*numbers, other, numbers->begin(),
                                   [](double one, double two) { return std::min(one, two); });
        }
    }
    return minimum;
}

} // namespace

void measureHomeScreen(Figures &figures)
{
    for (const char *scenario :
         {"opening", "openingPlain", "loadingFew", "loadingMany", "refreshing", "reopening"}) {
        const Numbers minimum = minimumOf(QString::fromLatin1(scenario), 3);
        for (auto numbers = minimum.begin(); numbers != minimum.end(); ++numbers)
            figures.record(numbers.key().toStdString(), *std::ranges::min_element(*numbers));
    }
    // Each run renders the same frames; the slowest frame counts.
    for (const char *scenario : {"flinging", "flingingPlain"}) {
        const Numbers minimum = minimumOf(QString::fromLatin1(scenario), 2);
        for (auto numbers = minimum.begin(); numbers != minimum.end(); ++numbers)
            figures.record(numbers.key().toStdString(), *std::ranges::max_element(*numbers));
    }
}

} // namespace tolvane::bench
