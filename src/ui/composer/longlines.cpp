// SPDX-License-Identifier: MIT
#include "ui/composer/longlines.h"

#include <QtCore/QStringView>

namespace tolvane {

namespace {

/// A line that is longer is divided into parts that can be edited without a delay.
constexpr qsizetype longestLine = 20'000;
constexpr qsizetype partLength = 5'000;

qsizetype firstPartLength(QStringView line)
{
    const qsizetype afterSpace = line.first(partLength).lastIndexOf(u' ') + 1;
    if (afterSpace > partLength / 2)
        return afterSpace;
    return line.at(partLength - 1).isHighSurrogate() ? partLength - 1 : partLength;
}

void append(QString &result, QStringView line)
{
    const bool isLong = line.size() > longestLine;
    while (isLong && line.size() > partLength) {
        const qsizetype length = firstPartLength(line);
        result += line.first(length);
        result += u'\n';
        line = line.sliced(length);
    }
    result += line;
}

} // namespace

QString withDividedLines(const QString &text)
{
    if (text.size() <= longestLine)
        return text;
    QString result;
    result.reserve(text.size() + text.size() / partLength * 2);
    qsizetype begin = 0;
    for (qsizetype end = text.indexOf(u'\n'); end >= 0; end = text.indexOf(u'\n', begin)) {
        append(result, QStringView(text).sliced(begin, end - begin));
        result += u'\n';
        begin = end + 1;
    }
    append(result, QStringView(text).sliced(begin));
    return result.size() == text.size() ? text : result;
}

} // namespace tolvane
