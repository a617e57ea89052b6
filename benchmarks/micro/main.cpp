// SPDX-License-Identifier: MIT
#include "backend/configuration.h"
#include "benchmarks/support/allocations.h"
#include "benchmarks/support/figures.h"
#include "conversation.h"
#include "homescreen.h"
#include "idle.h"
#include "scrolling.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>

#include <benchmark/benchmark.h>

using tolvane::bench::Requirement;

namespace {

const std::vector<Requirement> requirements = {
    {"initialize / one read and one event", "initialize", "readAndEvent", 2, "x"},
    {"decoding 10,000 messages / QJsonDocument's parse", "decodeTicket", "parseWithQJsonDocument",
     0.5, "x"},
    {"body with 20 MB attached / two plain copies", "buildBody", "twoPlainCopies", 1.5, "x"},
    {"main thread's share of a quiet poll of 10,000 messages", "quietPoll", "", 1, "ms"},
    {"small request / the same through a bare manager", "requestThroughClient",
     "requestThroughBareManager", 1.5, "x"},
    {"console idle, peak memory / bare program's", "idle console memory", "idle baseline memory",
     1.5, "x"},
    {"console idle, wake-ups in 3 seconds", "idle console wake-ups", "", 0, "wake-ups"},
    {"a picture in memory", "pictureInMemory", "", 0.001, "ms"},
    {"a picture in memory, allocations", "allocations for a picture in memory", "", 0, "times"},
    {"thumbnail of 12 megapixels / scaled by QImageReader", "thumbnailOfPhoto", "scaledByReader",
     1.3, "x"},
    {"thumbnail of 12 megapixels / decoded, then scaled", "thumbnailOfPhoto", "decodedThenScaled",
     1, "x"},
    {"main thread's share of a thumbnail in 1,000", "thumbnail on main thread", "", 0.3, "ms"},
    {"memory for 1,000 thumbnails scrolled through", "thumbnails' memory", "", 110, "MiB"},
    {"10,000 pushes handled", "tenThousandPushes", "", 200, "ms"},
    {"10,000 pushes / 1,000 pushes", "tenThousandPushes", "thousandPushes", 12, "x"},
    {"initialize with views", "initialize with views", "", 1, "ms"},
    {"first open to its frame / a plain interface's", "first open", "first plain view", 3, "x"},
    {"later open to its frame / a plain interface's", "later open", "later plain view", 2, "x"},
    {"10,000 tickets painted / 20 tickets", "10000 tickets painted", "20 tickets painted", 2, "x"},
    {"rows rebuilt for one of 1,000 that changed", "rebuilt rows", "", 0, "rows"},
    {"slowest frame of flings / of a plain list's", "frame", "plain frame", 2, "x"},
    {"memory that a presentation adds", "presentation's memory", "", 15, "MiB"},
    {"memory that stays after closing it", "memory after closing", "", 15, "MiB"},
    {"memory that each of 200 presentations leaves", "KiB left by one presentation", "", 4, "KiB"},
    {"first frame of 10,000 messages / of 20", "first frame with 10000 messages",
     "first frame with 20 messages", 2, "x"},
    {"one more message after 10,000", "frame with one more message with 10000 messages", "", 16.7,
     "ms"},
    {"one more message after 10,000 / a row of a plain list",
     "frame with one more message with 10000 messages",
     "frame with one more row with 10000 messages", 3, "x"},
    {"longest frame as a message comes in",
     "longest frame as a message comes in with 10000 messages", "", 16.7, "ms"},
    {"screen's share of a quiet poll of 10,000 messages", "quiet poll with 10000 messages", "", 1,
     "ms"},
    {"longest frame of flings / of a plain list's",
     "longest frame of a fling through the conversation with 10000 messages",
     "longest frame of a fling through a plain list with 10000 messages", 2, "x"},
    {"median frame of flings / of a plain list's",
     "median frame of a fling through the conversation with 10000 messages",
     "median frame of a fling through a plain list with 10000 messages", 2, "x"},
    {"delegates alive among 10,000 messages",
     "most delegates in the conversation with 10000 messages", "", 20, "items"},
    {"a key in 200 lines", "key in 200 lines with 20 messages", "", 4, "ms"},
    {"pinch and pan of 12 megapixels, large allocations", "large allocations of a pinch and pan",
     "", 0, "times"},
    // The limits of the caches, and the records.
    {"10,000 messages and 1,000 pictures, memory over that of 20", "memory of a long conversation",
     "", 125, "MiB"},
    {"memory with 20 messages", "peak memory with 20 messages", "", 200, "MiB"},
};

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
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;

    tolvane::Configuration::shared().setApiKeyOnce(QStringLiteral("key"));
    tolvane::bench::Figures figures;
    benchmark::RunSpecifiedBenchmarks(&figures);
    tolvane::bench::measureIdle(figures);
    tolvane::bench::measureAllocations(figures);
    tolvane::bench::measureScrolling(figures);
    tolvane::bench::measureHomeScreen(figures);
    tolvane::bench::measureConversation(figures);
    return figures.check(requirements) ? 0 : 1;
}
