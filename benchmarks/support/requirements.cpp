// SPDX-License-Identifier: MIT
#include "requirements.h"

#include "page.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tolvane::bench {

namespace {

const Requirement requirements[] = {
    {"initialize / one read and one event", "ms", 2, "initialize", "readAndEvent", nullptr},
    {"decoding 10,000 messages / QJsonDocument's parse", "ms", 0.5, "decodeTicket",
     "parseWithQJsonDocument", nullptr},
    {"decoding 10,000 messages", "ms", 8, "decodeTicket", nullptr,
     "half a frame at 60 Hz, on a thread of its own", 3},
    {"body with 20 MB attached / two plain copies", "ms", 1.5, "buildBody", "twoPlainCopies",
     nullptr},
    {"main thread's share of an unchanged poll of 10,000 messages", "ms", 1, "unchangedPoll",
     nullptr, "a sixteenth of a frame at 60 Hz"},
    {"small request / the same through a bare manager", "ms", 1.5, "requestThroughClient",
     "requestThroughBareManager", nullptr, 1.15},
    {"console idle, peak memory / bare program's", "MiB", 1.5, "idle console memory",
     "idle baseline memory", nullptr},
    {"console idle, wake-ups in 3 seconds", "wake-ups", 0, "idle console wake-ups", nullptr,
     "a count"},
    {"a picture in memory", "ms", 0.001, "pictureInMemory", nullptr,
     "fifty of them within a twentieth of a millisecond"},
    {"a picture in memory, allocations", "times", 0, "allocations for a picture in memory", nullptr,
     "a count"},
    {"thumbnail of 12 megapixels / scaled by QImageReader", "ms", 1.3, "thumbnailOfPhoto",
     "scaledByReader", nullptr},
    {"thumbnail of 12 megapixels / decoded, then scaled", "ms", 1, "thumbnailOfPhoto",
     "decodedThenScaled", nullptr},
    {"main thread's share of a thumbnail in 1,000", "ms", 0.3, "thumbnail on main thread", nullptr,
     "fifty of them in one frame at 60 Hz"},
    {"memory for 1,000 thumbnails scrolled through", "MiB", 110, "thumbnails' memory", nullptr,
     "the limit of the cache, plus pictures being decoded"},
    {"10,000 pushes handled", "ms", 200, "tenThousandPushes", nullptr,
     "a fiftieth of a millisecond each, on the main thread"},
    {"10,000 pushes / 1,000 pushes", "ms", 12, "tenThousandPushes", "thousandPushes", nullptr},
    {"start-up that linking the messenger adds to a host", "ms", 3, "start-up that linking adds",
     nullptr, "it must not delay a host's start", 1},
    {"memory that linking the messenger adds to a host", "MiB", 1, "memory that linking adds",
     nullptr, "the cost for a host that never opens the messenger"},
    {"initialize with views", "ms", 1, "initialize with views", nullptr,
     "it must not delay a host's start"},
    {"first open to its frame / a plain interface's", "ms", 3, "first open", "first plain view",
     nullptr, 1.3},
    {"later open to its frame / a plain interface's", "ms", 2, "later open", "later plain view",
     nullptr, 1.1},
    {"10,000 tickets painted / 20 tickets", "ms", 2, "10000 tickets painted", "20 tickets painted",
     nullptr},
    {"rows rebuilt for one of 1,000 that changed", "rows", 0, "rebuilt rows", nullptr, "a count"},
    {"slowest frame of flings / of a plain list's", "ms", 2, "frame", "plain frame", nullptr},
    {"memory that a presentation adds", "MiB", 15, "presentation's memory", nullptr,
     "the cost for a host; the next row has a baseline", 9},
    {"memory that a presentation adds / a plain interface's", "MiB", 4, "presentation's memory",
     "plain view's memory", nullptr, 2},
    {"memory that stays after closing it", "MiB", 15, "memory after closing", nullptr,
     "the cost that remains for a host", 3},
    {"memory that each of 200 presentations leaves", "KiB", 4, "KiB left by one presentation",
     nullptr, "the precision of the allocator's count"},
    {"first frame of 10,000 messages / of 20", "ms", 2, "first frame with 10000 messages",
     "first frame with 20 messages", nullptr, 1.2},
    {"one more message after 10,000", "ms", 4, "frame with one more message with 10000 messages",
     nullptr, "a quarter of a frame at 60 Hz"},
    {"one more message after 10,000 / a row of a plain list", "ms", 3,
     "frame with one more message with 10000 messages",
     "frame with one more row with 10000 messages", nullptr, 1.5},
    {"longest frame as a message comes in", "ms", 16.7,
     "longest frame as a message comes in with 10000 messages", nullptr, "one frame at 60 Hz"},
    {"screen's share of an unchanged poll of 10,000 messages", "ms", 1,
     "unchanged poll with 10000 messages", nullptr, "a sixteenth of a frame at 60 Hz"},
    {"longest frame of flings / of a plain list's", "ms", 2,
     "longest frame of a fling through the conversation with 10000 messages",
     "longest frame of a fling through a plain list with 10000 messages", nullptr, 1.3},
    {"median frame of flings / of a plain list's", "ms", 2,
     "median frame of a fling through the conversation with 10000 messages",
     "median frame of a fling through a plain list with 10000 messages", nullptr, 1.1},
    {"delegates alive among 10,000 messages", "items", 20,
     "most delegates in the conversation with 10000 messages", nullptr, "a count"},
    {"a key in 200 lines", "ms", 4, "key in 200 lines with 20 messages", nullptr,
     "a quarter of a frame at 60 Hz"},
    {"pinch and pan of 12 megapixels, large allocations", "times", 0,
     "large allocations of a pinch and pan", nullptr, "a count"},
    {"10,000 messages and 1,000 pictures, memory over that of 20", "MiB", 125,
     "memory of a long conversation", nullptr, "the limits of the caches, and the records"},
    {"frames per idle second that the panel adds", "frames", 0, "idle frames with the panel",
     nullptr, "a count"},
    {"opening the panel / the full form", "ms", 1.05, "opening the panel", "opening the full form",
     nullptr},
    {"host's frame, a conversation scrolls in the panel / stands still", "ms", 1.2,
     "host's frame with a scrolled panel", "host's frame with a still panel", nullptr},
    {"host's frame, the panel / a plain list in its place, scrolled", "ms", 1.5,
     "host's frame with a scrolled panel", "host's frame with a scrolled list", nullptr},
    {"memory with 20 messages", "MiB", 200, "peak memory with 20 messages", nullptr,
     "the whole process, with its renderer"},
};

Figure figureOf(const Figures &figures, const char *name, QByteArrayView unit)
{
    return unit.endsWith("iB") ? figures.median(name) : figures.minimum(name);
}

Outcome outcomeOf(const Figures &figures, const Requirement &requirement)
{
    const Figure subject = figureOf(figures, requirement.subject, requirement.unit);
    if (!requirement.baseline)
        return {requirement, subject, {NAN, NAN}, subject};
    const Figure baseline = figureOf(figures, requirement.baseline, requirement.unit);
    const Figure ratio{subject.value / baseline.value, subject.spread + baseline.spread};
    return {requirement, subject, baseline, ratio};
}

/// A result with its unit, and the two figures of a ratio.
QString resultText(const Outcome &outcome)
{
    const QString unit = QString::fromUtf8(outcome.requirement.unit);
    if (!outcome.requirement.baseline)
        return number(outcome.result.value) + u' ' + unit;
    return QStringLiteral("%1 (%2 / %3 %4)")
        .arg(number(outcome.result.value), number(outcome.subject.value),
             number(outcome.baseline.value), unit);
}

const char *verdict(const Outcome &outcome)
{
    if (!outcome.isMet())
        return "MISSED";
    return outcome.result.value <= outcome.requirement.goal.value_or(outcome.requirement.limit)
               ? "met"
               : "above goal";
}

/// The goal, if it is not the limit.
QString goalText(const Outcome &outcome)
{
    return outcome.requirement.goal ? number(*outcome.requirement.goal) : QString();
}

QString percent(double ratio)
{
    return std::isfinite(ratio) ? QString::number(std::round(ratio * 100)) + QStringLiteral(" %")
                                : QString();
}

constexpr const char *worse = "WORSE";

/// What a change has done to a result. Differences within the spread are noise.
const char *changeOf(double old, double now, double spread)
{
    if (std::isnan(old))
        return "new";
    if (std::isnan(now) || now > old * (1 + spread))
        return worse;
    return now < old * (1 - spread) ? "better" : "";
}

} // namespace

std::vector<Outcome> outcomesOf(const Figures &figures)
{
    std::vector<Outcome> outcomes;
    for (const Requirement &requirement : requirements)
        outcomes.push_back(outcomeOf(figures, requirement));
    return outcomes;
}

bool areAllMet(const std::vector<Outcome> &outcomes)
{
    return std::ranges::all_of(outcomes, &Outcome::isMet);
}

void print(const std::vector<Outcome> &outcomes)
{
    std::printf("\n");
    for (const Outcome &outcome : outcomes) {
        std::printf("%-60s %-34s goal %-5s at most %-5g %s\n", outcome.requirement.name,
                    qPrintable(resultText(outcome)), qPrintable(goalText(outcome)),
                    outcome.requirement.limit, verdict(outcome));
    }
}

bool writePage(const std::vector<Outcome> &outcomes, const QString &fileName)
{
    QString text = QStringLiteral(
        "Written by `./run bench --page FILE`. A limit applies to the ratio of two figures of one "
        "run, because machines\ndiffer; a limit without a baseline has a reason. A run fails "
        "beyond a limit; the goal is what is aimed at. Times and\ncounts are the least of several "
        "measurements, memory is the median of several processes. The spread shows how much\nthe "
        "measurements differ.\n\n");
    text += QStringLiteral("Measured on: %1.\n\n").arg(machine());
    text += head({QStringLiteral("What"), QStringLiteral("Result"), QStringLiteral("Goal"),
                  QStringLiteral("At most"), QString(), QStringLiteral("Spread"),
                  QStringLiteral("Reason for a limit without baseline")});
    for (const Outcome &outcome : outcomes) {
        text += row({QString::fromUtf8(outcome.requirement.name), resultText(outcome),
                     goalText(outcome), number(outcome.requirement.limit),
                     QString::fromUtf8(verdict(outcome)), percent(outcome.result.spread),
                     QString::fromUtf8(outcome.requirement.reason)});
    }
    return writeSection(fileName, QStringLiteral("Limits"), text);
}

bool save(const std::vector<Outcome> &outcomes, const QString &fileName)
{
    QJsonObject results;
    for (const Outcome &outcome : outcomes) {
        results.insert(QString::fromUtf8(outcome.requirement.name),
                       QJsonObject{{QStringLiteral("result"), outcome.result.value},
                                   {QStringLiteral("spread"), outcome.result.spread}});
    }
    return writeFile(fileName, QJsonDocument(results).toJson());
}

bool compare(const std::vector<Outcome> &outcomes, const QString &fileName)
{
    const QJsonObject before = QJsonDocument::fromJson(readFile(fileName)).object();
    bool isNoWorse = !before.isEmpty();
    std::printf("\n%-60s %10s %10s %8s %8s\n", "Change", "before", "now", "change", "spread");
    for (const Outcome &outcome : outcomes) {
        const QJsonObject entry = before[QString::fromUtf8(outcome.requirement.name)].toObject();
        // NaN, which is saved as null, stays NaN.
        const double old = entry[QStringLiteral("result")].toDouble(NAN);
        const double spread = outcome.result.spread + entry[QStringLiteral("spread")].toDouble();
        const double now = outcome.result.value;
        const char *change = changeOf(old, now, spread);
        isNoWorse = isNoWorse && qstrcmp(change, worse) != 0;
        std::printf("%-60s %10.4g %10.4g %8s %8s %s\n", outcome.requirement.name, old, now,
                    qPrintable(percent(now == old ? 0 : now / old - 1)),
                    qPrintable(percent(spread)), change);
    }
    return isNoWorse;
}

} // namespace tolvane::bench
