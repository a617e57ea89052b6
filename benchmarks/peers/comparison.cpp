// SPDX-License-Identifier: MIT
#include "comparison.h"

#include "benchmarks/support/page.h"

#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryFile>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tolvane::peers {

namespace {

using bench::Figures;
using bench::number;

struct Row
{
    const char *name;
    const char *unit;
    const char *quantity;
    int messageCount;
    /// Of the messenger's figure to that of the better web view.
    double limit;
    /// What every host with a window has is subtracted: this quantity of the bare list's host.
    const char *host = nullptr;
    const char *subject = ours;
};

constexpr Row rows[] = {
    {"opening, 20 messages", "ms", firstOpening, fewMessages, 0.2},
    {"opening, 10,000 messages", "ms", firstOpening, manyMessages, 0.2},
    {"opening over the window: the messenger slides in", "ms", firstOpening, fewMessages, 1,
     nullptr, sliding},
    {"second opening, 20 messages", "ms", secondOpening, fewMessages, 0.2},
    {"second opening, 10,000 messages", "ms", secondOpening, manyMessages, 0.2},
    {"cold process, 20 messages", "ms", coldStart, fewMessages, 1},
    {"memory added before opening", "MiB", memoryBefore, fewMessages, 0.1, memoryBefore},
    {"memory added, 20 messages", "MiB", memoryOpen, fewMessages, 0.1, memoryBefore},
    {"memory added, 10,000 messages", "MiB", memoryOpen, manyMessages, 0.1, memoryBefore},
    {"memory added after closing", "MiB", memoryClosed, fewMessages, 0.1, memoryBefore},
    {"one more of 20 messages, until it is seen", "ms", messageTime, fewMessages, 1},
    {"one more of 10,000 messages, until it is seen", "ms", messageTime, manyMessages, 1},
    {"one more of 20 messages, processor time", "ms", messageWork, fewMessages, 1},
    {"one more of 10,000 messages, processor time", "ms", messageWork, manyMessages, 1},
    {"a frame of a fling, 10,000 messages, processor time", "ms", flingFrame, manyMessages, 1},
    {"a minute open and idle, processor time", "ms", idleMinute, fewMessages, 1},
    {"files that a host ships", "MiB", diskSize, fewMessages, 0.1},
    {"processes added", "", processCount, fewMessages, 1, processCount},
    {"threads added", "", threadCount, fewMessages, 1, threadCount},
};

/// The quantities of Row::host are those of a host that has not opened anything, except for counts,
/// which the bare list does not change.
double figure(const Figures &figures, const Row &row, const char *peer)
{
    const auto valueOf = [&](const char *quantity, const char *of) {
        const std::string name = figureName(quantity, of, row.messageCount);
        return qstrcmp(row.unit, "MiB") == 0 ? figures.median(name).value
                                             : figures.minimum(name).value;
    };
    const double value = valueOf(row.quantity, peer);
    return row.host ? value - valueOf(row.host, bareList) : value;
}

double betterWebView(const Figures &figures, const Row &row)
{
    return std::min(figure(figures, row, plainPage), figure(figures, row, virtualPage));
}

bool isMet(const Figures &figures, const Row &row)
{
    return figure(figures, row, row.subject) <= row.limit * betterWebView(figures, row);
}

/// Says which side wins as well.
QString verdict(const Figures &figures, const Row &row)
{
    if (isMet(figures, row))
        return QStringLiteral("met");
    return figure(figures, row, row.subject) <= betterWebView(figures, row)
               ? QStringLiteral("MISSED")
               : QStringLiteral("MISSED, the web view wins");
}

QStringList cells(const Figures &figures, const Row &row)
{
    const auto text = [&](const char *peer) {
        return bench::number(std::round(figure(figures, row, peer) * 100) / 100);
    };
    const QString unit =
        qstrlen(row.unit) ? QStringLiteral(", ") + QLatin1String(row.unit) : QString();
    return {
        QString::fromUtf8(row.name) + unit,
        text(row.subject),
        text(bareList),
        text(plainPage),
        text(virtualPage),
        QString::number(figure(figures, row, row.subject) / betterWebView(figures, row), 'f', 2),
        number(row.limit),
        verdict(figures, row)};
}

/// The names and versions of the packages in the web pages.
QString kits()
{
    const QByteArray package =
        bench::readFile(QStringLiteral(TOLVANE_PEER_PAGES "/../package.json"));
    const QJsonObject versions =
        QJsonDocument::fromJson(package)[QStringLiteral("dependencies")].toObject();
    QStringList names;
    for (const char *name : {"@chatscope/chat-ui-kit-react", "react-virtuoso", "react-dom"}) {
        const QString key = QString::fromLatin1(name);
        names += key + u' ' + versions[key].toString();
    }
    return names.join(QStringLiteral(", "));
}

QString engine()
{
    QProcess host;
    host.start(QStringLiteral(TOLVANE_PEER_WEB), {QStringLiteral("--versions")});
    host.waitForFinished();
    return QString::fromUtf8(host.readAllStandardOutput()).trimmed();
}

qint64 sizeWithoutSymbols(const QString &fileName)
{
    QTemporaryFile stripped;
    if (!stripped.open() ||
        QProcess::execute(QStringLiteral("strip"),
                          {QStringLiteral("-o"), stripped.fileName(), fileName}) != 0)
        throw std::runtime_error("strip failed");
    return QFileInfo(stripped.fileName()).size();
}

/// What a system with windows has anyway.
bool isOfSystem(const QString &file)
{
    static const char *const parts[] = {"/fonts/", "cache",    "/dev/",  "/tmp/",
                                        "/X11/",   "/locale/", "/mime/", "/dri/"};
    return std::ranges::any_of(
        parts, [&](const char *part) { return file.contains(QLatin1String(part)); });
}

} // namespace

std::string figureName(const char *quantity, const char *peer, int messageCount)
{
    return std::string(quantity) + ", " + peer + ", " + std::to_string(messageCount);
}

double mebibytesOfFiles(const QSet<QString> &files, const Peer &peer)
{
    qint64 bytes = 0;
    for (const QString &file : files) {
        if (isOfSystem(file) || file == peer.program || !QFileInfo(file).isFile())
            continue;
        bytes += file.startsWith(QStringLiteral(TOLVANE_BUILD)) ? sizeWithoutSymbols(file)
                                                                : QFileInfo(file).size();
    }
    for (const char *suffix : {".js", ".css"})
        bytes += QFileInfo(peer.page + QLatin1String(suffix)).size();
    return double(bytes) / (1024 * 1024);
}

bool report(const Figures &figures, const QString &fileName)
{
    QString table = bench::head(
        {QStringLiteral("What"), QStringLiteral("Messenger"), QStringLiteral("Bare list"),
         QStringLiteral("Web view, plain list"), QStringLiteral("Web view, virtual list"),
         QStringLiteral("Messenger / better web view"), QStringLiteral("At most"), QString()});
    bool areAllMet = true;
    for (const Row &row : rows) {
        table += bench::row(cells(figures, row));
        areAllMet = areAllMet && isMet(figures, row);
    }
    std::printf("\n%s", qPrintable(table));
    if (fileName.isEmpty())
        return areAllMet;
    const QString text =
        QStringLiteral("Written by `./run bench peers --page FILE`. Each host opens the same "
                       "conversation of the local backend, with a\npicture in one of ten "
                       "messages, in an item of its window of 480 × 800 pixels. A time ends "
                       "when the last message is\non the screen, seen from another process. "
                       "Memory and processor time are those of all processes of a host; "
                       "\"added\"\nis to a host before it opens its bare list. The page of "
                       "the web view comes with the host, so it needs no download.\n\n"
                       "Measured on: %1. Web view: %2; %3.\n\n")
            .arg(bench::machine(), engine(), kits());
    return bench::writeSection(fileName, QStringLiteral("Beside a web view"), text + table) &&
           areAllMet;
}

} // namespace tolvane::peers
