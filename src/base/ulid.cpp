// SPDX-License-Identifier: MIT
#include "base/ulid.h"

#include "base/base32.h"

#include <QtCore/QRandomGenerator>

#include <algorithm>

namespace tolvane {

namespace {

// 20 bytes are exactly 32 symbols; the first 6 symbols contain only zero bits.
constexpr int leadingZeroBytes = 4;
constexpr int leadingZeroSymbols = 6;
constexpr int textLength = 26;

template <typename Iterator>
void writeBigEndian(std::uint64_t value, Iterator begin, Iterator end)
{
    while (end != begin) {
        *--end = static_cast<std::uint8_t>(value);
        value >>= 8;
    }
}

} // namespace

ULID ULID::generate(const QDateTime &time)
{
    // Uses the clock's whole milliseconds; fractional seconds would lose some of them.
    const auto milliseconds = static_cast<std::uint64_t>(time.toMSecsSinceEpoch());
    QRandomGenerator *random = QRandomGenerator::system();
    Bytes bytes{};
    writeBigEndian(milliseconds, bytes.begin(), bytes.begin() + 6);
    writeBigEndian(random->generate64(), bytes.begin() + 6, bytes.begin() + 8);
    writeBigEndian(random->generate64(), bytes.begin() + 8, bytes.end());
    return ULID(bytes);
}

std::optional<ULID> ULID::parse(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    if (utf8.size() != textLength)
        return std::nullopt;
    const auto decoded = decodeBase32(QByteArray(leadingZeroSymbols, '0') + utf8, crockfordBase32);
    // Trailing padding would yield fewer bytes.
    if (!decoded || decoded->size() != leadingZeroBytes + static_cast<qsizetype>(sizeof(Bytes)))
        return std::nullopt;
    Bytes bytes{};
    std::copy(decoded->begin() + leadingZeroBytes, decoded->end(), bytes.begin());
    return ULID(bytes);
}

QString ULID::description() const
{
    QByteArray padded(leadingZeroBytes, '\0');
    padded.append(reinterpret_cast<const char *>(ulid.data()), static_cast<qsizetype>(ulid.size()));
    const QByteArray text = encodeBase32(padded, crockfordBase32, Base32Padding::omit);
    return QString::fromLatin1(text.sliced(leadingZeroSymbols).toLower());
}

std::size_t qHash(const ULID &id, std::size_t seed)
{
    return qHashRange(id.bytes().begin(), id.bytes().end(), seed);
}

} // namespace tolvane
