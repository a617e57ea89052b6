// SPDX-License-Identifier: MIT
#include "backend/wire/jsonrepair.h"

#include <QtCore/QChar>
#include <QtCore/QRegularExpression>

#include <cstring>

namespace tolvane::json {

namespace {

// No record has a list of lists.
constexpr const char *unacceptable = "[[]]";
constexpr const char *replacementCharacter = "\\uFFFD";
constexpr qsizetype escapeLength = 6; // \uXXXX

/// The code unit of the escape that begins at a position; 0 if no escape begins there.
ushort codeUnit(QByteArrayView json, qsizetype at)
{
    if (at + escapeLength > json.size() || json[at] != '\\' || json[at + 1] != 'u')
        return 0;
    return json.sliced(at + 2, 4).toByteArray().toUShort(nullptr, 16);
}

/// Appends a string, from its quotation mark on. Returns the position after it.
qsizetype appendString(QByteArray &out, QByteArrayView json, qsizetype at)
{
    out += json[at++];
    while (at < json.size()) {
        const ushort unit = codeUnit(json, at);
        if (QChar::isHighSurrogate(unit) &&
            QChar::isLowSurrogate(codeUnit(json, at + escapeLength))) {
            out.append(json.sliced(at, 2 * escapeLength));
            at += 2 * escapeLength;
        } else if (QChar::isSurrogate(unit)) {
            out += replacementCharacter;
            at += escapeLength;
        } else if (json[at] == '\\' && at + 1 < json.size()) {
            out.append(json.sliced(at, 2));
            at += 2;
        } else {
            out += json[at];
            if (json[at++] == '"')
                break;
        }
    }
    return at;
}

/// Whether a text is a number by the grammar of JSON, but neither a 64-bit integer nor a finite
/// double.
bool isBeyondRange(const QByteArray &text)
{
    static const QRegularExpression grammar(QRegularExpression::anchoredPattern(
        QStringLiteral("-?(0|[1-9][0-9]*)(\\.[0-9]+)?([eE][+-]?[0-9]+)?")));
    const QRegularExpressionMatch match = grammar.match(QString::fromLatin1(text));
    if (!match.hasMatch())
        return false;
    bool isInRange = false;
    if (match.lastCapturedIndex() > 1)
        text.toDouble(&isInRange); // False for infinity.
    else if (text.startsWith('-'))
        text.toLongLong(&isInRange);
    else
        text.toULongLong(&isInRange);
    return !isInRange;
}

qsizetype appendNumber(QByteArray &out, QByteArrayView json, qsizetype at)
{
    qsizetype end = at;
    while (end < json.size() && std::strchr("+-.0123456789eE", json[end]) && json[end] != '\0')
        ++end;
    const QByteArray number = json.sliced(at, end - at).toByteArray();
    out += isBeyondRange(number) ? QByteArray(unacceptable) : number;
    return end;
}

} // namespace

QByteArray repaired(QByteArrayView json)
{
    QByteArray out;
    out.reserve(json.size());
    qsizetype at = 0;
    while (at < json.size()) {
        const char character = json[at];
        if (character == '"')
            at = appendString(out, json, at);
        else if (character == '-' || (character >= '0' && character <= '9'))
            at = appendNumber(out, json, at);
        else
            out += json[at++];
    }
    return out;
}

} // namespace tolvane::json
