// SPDX-License-Identifier: MIT
#include "conversation.h"

#include "benchmarks/support/figures.h"
#include "testing/process.h"

namespace tolvane::bench {

namespace {

struct Run
{
    const char *scenario;
    int messageCount;
    /// The minimum counts, because noise only adds time. Short runs are repeated more often.
    int repetitions;
};

constexpr Run runs[] = {
    {"open", 20, 5},
    {"open", 10'000, 5},
    {"append", 10'000, 2},
    {"append-plain", 10'000, 2},
    {"poll", 10'000, 2},
    {"fling", 10'000, 1},
    {"fling-plain", 10'000, 1},
    {"type", 20, 2},
    {"zoom", 0, 2},
    {"read", 20, 3},
    {"read", 10'000, 2},
};

} // namespace

void measureConversation(Figures &figures)
{
    for (const Run &run : runs) {
        for (int repetition = 0; repetition < run.repetitions; ++repetition) {
            const QByteArray output = test::outputOf(
                QStringLiteral(TOLVANE_CONVERSATION_HOST),
                {QString::fromLatin1(run.scenario), QString::number(run.messageCount)});
            for (const QByteArray &line : output.trimmed().split('\n')) {
                const qsizetype blank = line.indexOf(' ');
                figures.record(line.sliced(blank + 1).toStdString(), line.first(blank).toDouble());
            }
        }
    }
    figures.record("memory of a long conversation",
                   figures.median("peak memory with 10000 messages").value -
                       figures.median("peak memory with 20 messages").value);
}

} // namespace tolvane::bench
