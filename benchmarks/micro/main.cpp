// SPDX-License-Identifier: MIT
#include "backend/configuration.h"
#include "benchmarks/support/allocations.h"
#include "benchmarks/support/figures.h"
#include "benchmarks/support/requirements.h"
#include "conversation.h"
#include "homescreen.h"
#include "idle.h"
#include "linking.h"
#include "panel.h"
#include "scrolling.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace tolvane::bench;

namespace {

/// What `./run bench` accepts besides the options of Google Benchmark.
struct Options
{
    QString page;
    QString save;
    QString compare;
};

Options optionsOf(const QStringList &arguments)
{
    const QCommandLineOption page(QStringLiteral("page"), {}, QStringLiteral("file"));
    const QCommandLineOption save(QStringLiteral("save"), {}, QStringLiteral("file"));
    const QCommandLineOption compare(QStringLiteral("compare"), {}, QStringLiteral("file"));
    QCommandLineParser parser;
    parser.addOptions({page, save, compare});
    parser.process(arguments); // Ends the program for an unknown option.
    return {parser.value(page), parser.value(save), parser.value(compare)};
}

/// Does what the options ask for. Returns whether all of it has succeeded. A comparison judges the
/// change only; otherwise all limits must be met.
bool report(const std::vector<Outcome> &outcomes, const Options &options)
{
    bool isDone = !options.compare.isEmpty() || areAllMet(outcomes);
    if (!options.page.isEmpty())
        isDone = writePage(outcomes, options.page) && isDone;
    if (!options.save.isEmpty())
        isDone = save(outcomes, options.save) && isDone;
    if (!options.compare.isEmpty())
        isDone = compare(outcomes, options.compare) && isDone;
    return isDone;
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    const QCoreApplication app(argc, argv);

    std::vector<char *> arguments(argv, argv + argc);
    // Several short rounds in random order: a disturbance affects both sides of a ratio.
    char repetitions[] = "--benchmark_repetitions=7";
    char interleaving[] = "--benchmark_enable_random_interleaving=true";
    char duration[] = "--benchmark_min_time=0.2";
    arguments.insert(arguments.begin() + 1, {repetitions, interleaving, duration});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    QStringList others;
    for (int i = 0; i < count; ++i)
        others += QString::fromLocal8Bit(arguments.at(std::size_t(i)));
    const Options options = optionsOf(others);

    tolvane::Configuration::shared().setApiKeyOnce(QStringLiteral("key"));
    Figures figures;
    benchmark::RunSpecifiedBenchmarks(&figures);
    measureIdle(figures);
    measureLinking(figures);
    measureAllocations(figures);
    measureScrolling(figures);
    measureHomeScreen(figures);
    measureConversation(figures);
    measurePanel(figures);
    const std::vector<Outcome> outcomes = outcomesOf(figures);
    print(outcomes);
    return report(outcomes, options) ? EXIT_SUCCESS : EXIT_FAILURE;
}
