// SPDX-License-Identifier: MIT
#include "homescreen.h"

#include "benchmarks/support/figures.h"

#include <QtCore/QMap>
#include <QtCore/QProcess>

#include <algorithm>

namespace tolvane::bench {

namespace {

/// The numbers that a host told, by their name, in their order.
using Numbers = QMap<QByteArray, QList<double>>;

Numbers numbersOf(const QString &mode)
{
    constexpr int patience = 600'000;
    QProcess host;
    host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    host.start(QStringLiteral(TOLVANE_HOME_HOST), {mode});
    if (!host.waitForFinished(patience) || host.exitStatus() != QProcess::NormalExit ||
        host.exitCode() != 0)
        qFatal("the home screen's host failed: %s", qPrintable(mode));
    Numbers numbers;
    for (const QByteArray &line : host.readAllStandardOutput().split('\n')) {
        const QByteArrayList parts = line.split(':');
        if (parts.size() == 2)
            numbers[parts.at(0)] += parts.at(1).toDouble();
    }
    return numbers;
}

/// Of several runs, number by number: noise only ever adds.
Numbers leastNumbersOf(const QString &mode, int runs)
{
    Numbers least = numbersOf(mode);
    for (int run = 1; run < runs; ++run) {
        const Numbers others = numbersOf(mode);
        for (auto numbers = least.begin(); numbers != least.end(); ++numbers) {
            const QList<double> other = others.value(numbers.key());
            numbers->resize(std::min(numbers->size(), other.size()));
            std::ranges::transform(*numbers, other, numbers->begin(),
                                   [](double one, double two) { return std::min(one, two); });
        }
    }
    return least;
}

} // namespace

void measureHomeScreen(Figures &figures)
{
    for (const char *mode :
         {"opening", "openingPlain", "loadingFew", "loadingMany", "refreshing", "again"}) {
        const Numbers least = leastNumbersOf(QString::fromLatin1(mode), 3);
        for (auto numbers = least.begin(); numbers != least.end(); ++numbers)
            figures.record(numbers.key().toStdString(), *std::ranges::min_element(*numbers));
    }
    // Each run has the same frames; the slowest counts.
    for (const char *mode : {"flinging", "flingingPlain"}) {
        const Numbers least = leastNumbersOf(QString::fromLatin1(mode), 2);
        for (auto numbers = least.begin(); numbers != least.end(); ++numbers)
            figures.record(numbers.key().toStdString(), *std::ranges::max_element(*numbers));
    }
}

} // namespace tolvane::bench
