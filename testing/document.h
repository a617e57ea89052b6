// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

namespace tolvane::test {

/// The texts between backticks in the first column of the tables with this first heading, on a page
/// of docs/.
inline QStringList wordsInTables(const QString &page, const QString &firstHeading)
{
    static const QRegularExpression word(QStringLiteral("`([^`]+)`"));
    QFile file(QStringLiteral(TOLVANE_SOURCES "/docs/") + page);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s", qPrintable(file.errorString()));
    QStringList words;
    bool isInside = false;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString cell = line.section(QLatin1Char('|'), 1, 1).trimmed();
        isInside = line.startsWith(QLatin1Char('|')) && (isInside || cell == firstHeading);
        if (!isInside)
            continue;
        for (const QRegularExpressionMatch &match : word.globalMatch(cell))
            words += match.captured(1);
    }
    return words;
}

} // namespace tolvane::test
