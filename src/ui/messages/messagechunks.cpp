// SPDX-License-Identifier: MIT
#include "ui/messages/messagechunks.h"

#include <QtCore/QTextBoundaryFinder>

namespace tolvane {

namespace {

/// The length of the first chunk of a text that is longer than one.
qsizetype chunkLength(QStringView text)
{
    const QStringView most = text.first(maxChunkLength);
    const qsizetype least = maxChunkLength * 3 / 4;
    for (const char16_t end : {u'\n', u' '}) {
        const qsizetype at = most.lastIndexOf(end);
        if (at >= least)
            return at + 1;
    }
    // One visible character may consist of many: an emoji of a family, a letter with accents.
    const QStringView around = text.sliced(least, qMin(text.size(), 2 * maxChunkLength) - least);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, around.data(), around.size());
    finder.setPosition(maxChunkLength - least);
    const qsizetype boundary =
        finder.isAtBoundary() ? finder.position() : finder.toPreviousBoundary();
    // Without a boundary this is a character longer than real text has: it may be split.
    return boundary > 0 ? least + boundary : maxChunkLength;
}

} // namespace

QStringList splitIntoChunks(const QString &text)
{
    QStringList parts;
    QStringView rest = text;
    while (rest.size() > maxChunkLength) {
        const QStringView part = rest.first(chunkLength(rest));
        rest = rest.sliced(part.size());
        parts += (part.endsWith(u'\n') ? part.chopped(1) : part).toString();
    }
    // Most texts are one chunk, which is not copied.
    parts += parts.isEmpty() ? text : rest.toString();
    return parts;
}

} // namespace tolvane
