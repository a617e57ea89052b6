// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>

#include <array>
#include <cstdint>
#include <optional>

namespace tolvane {

/// The tables of a Base32 alphabet (RFC 4648, section 6).
struct TOLVANE_AUTOTEST_EXPORT Base32Alphabet
{
    static constexpr std::uint8_t invalid = 255;

    std::array<char, 32> symbols;
    /// The value of each byte, or `invalid`.
    std::array<std::uint8_t, 256> values;
};

/// Crockford's alphabet, without I, L, O and U. Decoding accepts both cases, O as 0, and I and L
/// as 1.
TOLVANE_AUTOTEST_EXPORT extern const Base32Alphabet crockfordBase32;

enum class Base32Padding { omit, add };

TOLVANE_AUTOTEST_EXPORT QByteArray encodeBase32(QByteArrayView bytes,
                                                const Base32Alphabet &alphabet,
                                                Base32Padding padding);

/// Absent if no encoding has this length or a character is not in the alphabet. Trailing padding is
/// ignored.
TOLVANE_AUTOTEST_EXPORT std::optional<QByteArray> decodeBase32(QByteArrayView text,
                                                               const Base32Alphabet &alphabet);

} // namespace tolvane
