// SPDX-License-Identifier: MIT
#include "base/base32.h"

#include <algorithm>

namespace tolvane {

namespace {

constexpr std::array<char, 32> crockfordSymbols = {
    '0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F',
    'G', 'H', 'J', 'K', 'M', 'N', 'P', 'Q', 'R', 'S', 'T', 'V', 'W', 'X', 'Y', 'Z'};

constexpr std::array<std::uint8_t, 256> crockfordValues()
{
    std::array<std::uint8_t, 256> values{};
    values.fill(Base32Alphabet::invalid);
    const auto set = [&values](char symbol, std::uint8_t value) {
        values[static_cast<unsigned char>(symbol)] = value;
        if (symbol >= 'A' && symbol <= 'Z')
            values[static_cast<unsigned char>(symbol - 'A' + 'a')] = value;
    };
    for (std::uint8_t value = 0; value < 32; ++value)
        set(crockfordSymbols[value], value);
    set('O', 0);
    set('I', 1);
    set('L', 1);
    return values;
}

} // namespace

constexpr Base32Alphabet crockfordBase32 = {crockfordSymbols, crockfordValues()};

QByteArray encodeBase32(QByteArrayView bytes, const Base32Alphabet &alphabet, Base32Padding padding)
{
    QByteArray text;
    text.reserve((bytes.size() + 4) / 5 * 8);
    std::uint32_t pending = 0;
    int bits = 0;
    for (const char byte : bytes) {
        pending = (pending << 8) | static_cast<std::uint8_t>(byte);
        for (bits += 8; bits >= 5; bits -= 5)
            text += alphabet.symbols[(pending >> (bits - 5)) & 31];
    }
    if (bits > 0)
        text += alphabet.symbols[(pending << (5 - bits)) & 31];
    while (padding == Base32Padding::add && text.size() % 8 != 0)
        text += '=';
    return text;
}

std::optional<QByteArray> decodeBase32(QByteArrayView text, const Base32Alphabet &alphabet)
{
    while (text.endsWith('='))
        text.chop(1);
    constexpr std::array lastGroupSizes = {0, 2, 4, 5, 7};
    if (std::ranges::find(lastGroupSizes, text.size() % 8) == lastGroupSizes.end())
        return std::nullopt;
    QByteArray bytes;
    bytes.reserve(text.size() * 5 / 8);
    std::uint32_t pending = 0;
    int bits = 0;
    for (const char symbol : text) {
        const std::uint8_t value = alphabet.values[static_cast<unsigned char>(symbol)];
        if (value == Base32Alphabet::invalid)
            return std::nullopt;
        pending = (pending << 5) | value;
        bits += 5;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>(pending >> bits);
        }
    }
    return bytes;
}

} // namespace tolvane
