// SPDX-License-Identifier: MIT
// tolvane-growth [--page FILE]: measures how costs grow with the number of messages and tickets,
// and with the size of a message.
#include "benchmarks/support/figures.h"
#include "benchmarks/support/page.h"
#include "testing/process.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

using namespace tolvane;
using namespace tolvane::bench;

namespace {

constexpr std::array counts = {20, 200, 2'000, 20'000};

const QString conversationHost = QStringLiteral(TOLVANE_CONVERSATION_HOST);
const QString growthHost = QStringLiteral(TOLVANE_GROWTH_HOST);

/// A program that prints lines "NUMBER NAME".
struct Source
{
    const QString &program;
    const char *scenario;
    int repetitions;
};

const Source sources[] = {
    {conversationHost, "open", 3},  {conversationHost, "append", 1}, {conversationHost, "poll", 1},
    {conversationHost, "fling", 1}, {growthHost, "tickets", 1},      {growthHost, "decode", 1},
};

enum class Growth { Flat, Linear };

struct Row
{
    const char *name;
    const char *unit;
    Growth growth;
    const char *scenario;
    const char *figure;
};

constexpr Row rows[] = {
    {"opening a conversation, main thread", "ms", Growth::Flat, "open", "first frame"},
    {"one more message, its frame", "ms", Growth::Flat, "append", "frame with one more message"},
    {"unchanged poll of messages, main thread", "ms", Growth::Flat, "poll", "unchanged poll"},
    {"fling through messages, median frame", "ms", Growth::Flat, "fling",
     "median frame of a fling through the conversation"},
    {"opening a list of tickets, main thread", "ms", Growth::Flat, "tickets", "opening"},
    {"one more ticket, main thread", "ms", Growth::Flat, "tickets", "one more"},
    {"quiet poll of tickets, main thread", "ms", Growth::Flat, "tickets", "quiet poll"},
    {"fling through tickets, median frame", "ms", Growth::Flat, "tickets", "fling frame"},
    {"decoding messages", "ms", Growth::Linear, "decode", "decoding messages"},
    {"decoding tickets", "ms", Growth::Linear, "decode", "decoding tickets"},
    {"memory of an open conversation", "MiB", Growth::Linear, "open", "memory"},
    {"memory of an open list of tickets", "MiB", Growth::Linear, "tickets", "memory"},
};

struct Text
{
    const char *name;
    const char *scenario;
    int largest;
};

constexpr Text texts[] = {
    {"characters", "characters", 1'000'000},
    {"links", "links", 5'000},
    {"combining marks on one letter", "marks", 100'000},
    {"nested emphases", "nesting", 10'000},
};

constexpr std::array divisors = {8, 4, 2, 1};

std::string nameOf(const std::string &figure, const char *scenario, int size)
{
    return std::string(scenario) + ": " + figure + ", " + std::to_string(size);
}

void run(Figures &figures, const QString &program, const char *scenario, int size)
{
    std::printf("%s %d\n", scenario, size);
    std::fflush(stdout);
    const QByteArray output =
        test::outputOf(program, {QString::fromLatin1(scenario), QString::number(size)});
    const QByteArray suffix = " with " + QByteArray::number(size) + " messages";
    for (QByteArray line : output.trimmed().split('\n')) {
        if (line.endsWith(suffix))
            line.chop(suffix.size());
        const qsizetype blank = line.indexOf(' ');
        figures.record(nameOf(line.sliced(blank + 1).toStdString(), scenario, size),
                       line.first(blank).toDouble());
    }
}

double valueOf(const Figures &figures, const Row &row, int count)
{
    const std::string name = nameOf(row.figure, row.scenario, count);
    return qstrcmp(row.unit, "MiB") == 0 ? figures.median(name).value : figures.minimum(name).value;
}

/// The growth for each thousand between two counts.
double slope(const Figures &figures, const Row &row, int from, int to)
{
    return (valueOf(figures, row, to) - valueOf(figures, row, from)) * 1000 / (to - from);
}

/// A flat cost grows by no more than half, or half a millisecond, which is the noise of a small
/// one. A linear one grows no faster among thousands than among hundreds, with as much leeway. Of
/// memory half a mebibyte is noise, because little data fit into holes that others have left.
bool isMet(const Figures &figures, const Row &row)
{
    constexpr double leeway = 1.5;
    if (row.growth == Growth::Linear) {
        const double noise =
            qstrcmp(row.unit, "MiB") == 0 ? 0.5 * 1000 / (counts[2] - counts[1]) : 0;
        return slope(figures, row, counts[2], counts[3]) <=
               leeway * std::max(slope(figures, row, counts[1], counts[2]) + noise, 0.1);
    }
    const double least = valueOf(figures, row, counts.front());
    const double most = valueOf(figures, row, counts.back());
    return most <= leeway * least || most - least <= 0.5;
}

const char *verdict(bool isMet)
{
    return isMet ? "met" : "MISSED";
}

QString countTable(const Figures &figures, bool &areAllMet)
{
    QStringList cells{QStringLiteral("What")};
    for (const int count : counts)
        cells += QString::number(count);
    cells += {QStringLiteral("Growth"), QString()};
    QString table = head(cells);
    for (const Row &row : rows) {
        cells = {QString::fromLatin1(row.name) + QStringLiteral(", ") + QLatin1String(row.unit)};
        for (const int count : counts)
            cells += number(valueOf(figures, row, count));
        cells += row.growth == Growth::Flat ? QStringLiteral("flat")
                                            : number(slope(figures, row, counts[2], counts[3])) +
                                                  QStringLiteral(" per 1,000");
        cells += QString::fromLatin1(verdict(isMet(figures, row)));
        areAllMet = areAllMet && isMet(figures, row);
        table += bench::row(cells);
    }
    return table;
}

/// A doubled message may cost twice as much; a tenth is noise.
QString textTable(const Figures &figures, bool &areAllMet)
{
    constexpr double frame = 16;
    constexpr double mostForDouble = 2.2;
    QString table = head({QStringLiteral("A message of"), QStringLiteral("an eighth"),
                          QStringLiteral("a quarter"), QStringLiteral("half"),
                          QStringLiteral("all"), QStringLiteral("Last doubling"),
                          QStringLiteral("Longest on the main thread"), QString()});
    for (const Text &text : texts) {
        std::vector<double> whole;
        double atATime = 0;
        for (const int divisor : divisors) {
            const int size = text.largest / divisor;
            whole.push_back(figures.minimum(nameOf("whole", text.scenario, size)).value);
            atATime =
                std::max(atATime, figures.minimum(nameOf("at a time", text.scenario, size)).value);
        }
        const double doubling = whole.at(3) / whole.at(2);
        const bool isMet = atATime <= frame && doubling <= mostForDouble;
        areAllMet = areAllMet && isMet;
        QStringList cells{QString::number(text.largest) + u' ' + QLatin1String(text.name)};
        for (const double cost : whole)
            cells += number(cost) + QStringLiteral(" ms");
        cells += {number(doubling), number(atATime) + QStringLiteral(" ms"),
                  QString::fromLatin1(verdict(isMet))};
        table += bench::row(cells);
    }
    return table;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QCommandLineOption page(QStringLiteral("page"), {}, QStringLiteral("file"));
    QCommandLineParser parser;
    parser.addOption(page);
    parser.process(app);

    Figures figures;
    for (const Source &source : sources) {
        for (const int count : counts) {
            for (int repetition = 0; repetition < source.repetitions; ++repetition)
                run(figures, source.program, source.scenario, count);
        }
    }
    for (const Text &text : texts) {
        for (const int divisor : divisors) {
            for (int repetition = 0; repetition < 2; ++repetition)
                run(figures, growthHost, text.scenario, text.largest / divisor);
        }
    }

    bool areAllMet = true;
    QString tables = countTable(figures, areAllMet) + u'\n' + textTable(figures, areAllMet);
    std::printf("\n%s", qPrintable(tables));
    if (!parser.value(page).isEmpty()) {
        const QString text =
            QStringLiteral(
                "Written by `./run bench growth --page FILE`. A flat cost is the same for any "
                "number of messages or tickets, up to\nhalf of it or half a millisecond; a linear "
                "one has a slope, which may grow by half, and of which half a\nmebibyte is noise. "
                "The second table shows the processor time that a message takes in an open "
                "conversation: it\ngrows no faster than the message, and at most 16 ms of it are "
                "on the main thread at a time.\n\nMeasured on: %1.\n\n")
                .arg(machine());
        areAllMet =
            writeSection(parser.value(page), QStringLiteral("Growth"), text + tables) && areAllMet;
    }
    return areAllMet ? EXIT_SUCCESS : EXIT_FAILURE;
}
