// SPDX-License-Identifier: MIT
#include "backend/wire/jsonwriter.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tolvane::json {

namespace {

/// The escape sequence of a character that a JSON string must not contain (RFC 8259, section 7).
QByteArray escaped(char c)
{
    switch (c) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return "\\u00" + QByteArray(1, c).toHex();
    }
}

bool needsEscape(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

} // namespace

void write(QByteArray &out, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    out += '"';
    qsizetype written = 0;
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        if (!needsEscape(utf8[i]))
            continue;
        out += QByteArrayView(utf8).sliced(written, i - written);
        out += escaped(utf8[i]);
        written = i + 1;
    }
    out += QByteArrayView(utf8).sliced(written);
    out += '"';
}

void write(QByteArray &out, bool value)
{
    out += value ? "true" : "false";
}

void write(QByteArray &out, int number)
{
    out += QByteArray::number(number);
}

void write(QByteArray &out, float number)
{
    if (!std::isfinite(number)) {
        out += "null";
        return;
    }
    std::array<char, 64> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    out.append(digits.data(), result.ptr - digits.data());
}

void write(QByteArray &out, const ULID &id)
{
    write(out, id.description());
}

} // namespace tolvane::json
