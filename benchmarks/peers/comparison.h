// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/support/figures.h"
#include "session.h"

#include <QtCore/QSet>

namespace tolvane::peers {

constexpr int fewMessages = 20;
constexpr int manyMessages = 10'000;

/// The time that a host gets to release memory after closing, in s: more than the half minute for
/// which the messenger keeps what the next opening needs.
constexpr double settleSeconds = 35;

constexpr const char *bareList = "bare list";
constexpr const char *ours = "messenger";
constexpr const char *plainPage = "web view, plain list";
constexpr const char *virtualPage = "web view, virtual list";
/// The messenger over the window instead of in an item.
constexpr const char *sliding = "sliding messenger";

constexpr const char *coldStart = "cold process";
constexpr const char *diskSize = "size on disk";
constexpr const char *firstOpening = "first opening";
constexpr const char *flingFrame = "fling frame";
constexpr const char *flingFrames = "frames of a fling";
constexpr const char *idleMinute = "idle minute";
constexpr const char *memoryBefore = "memory before opening";
constexpr const char *memoryClosed = "memory after closing";
constexpr const char *memoryOpen = "memory while open";
constexpr const char *messageTime = "one more message";
constexpr const char *messageWork = "work for one more message";
constexpr const char *processCount = "processes";
constexpr const char *secondOpening = "second opening";
constexpr const char *threadCount = "threads";

std::string figureName(const char *quantity, const char *peer, int messageCount);

/// The size of the files of a host that are not files of the system: libraries without symbols,
/// data files, the page.
double mebibytesOfFiles(const QSet<QString> &files, const Peer &peer);

/// Prints the table, and writes it as a section of a page of Markdown unless the file name is
/// empty. Returns whether all limits are met and the page is written.
bool report(const bench::Figures &figures, const QString &fileName);

} // namespace tolvane::peers
