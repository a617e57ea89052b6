// SPDX-License-Identifier: MIT
#include "base/textlength.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTextBoundaryFinder>

namespace tolvane {

qsizetype characterCount(const QString &text)
{
    // Qt 6.4 splits a flag that follows another emoji. Two regional indicators always form one
    // flag, so a letter replaces them for counting.
    static const QRegularExpression flag(QStringLiteral("[\\x{1F1E6}-\\x{1F1FF}]{2}"));
    QString counted = text;
    counted.replace(flag, QStringLiteral("x"));

    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, counted);
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

} // namespace tolvane
