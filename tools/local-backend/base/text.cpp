// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QCryptographicHash>
#include <QtCore/QRandomGenerator>
#include <QtCore/QString>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace tolvane::backend {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

char toLower(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

int hexValue(char character)
{
    const auto at =
        hexDigits.find(character >= 'a' ? static_cast<char>(character - 'a' + 'A') : character);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

bool isUnreserved(char character)
{
    const char low = toLower(character);
    return (low >= 'a' && low <= 'z') || (low >= '0' && low <= '9') ||
           std::string_view("-._~").find(low) != std::string_view::npos;
}

QByteArray sha256(std::string_view bytes)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return hash.result();
}

// Long names keep their suffix, from which clients derive the type.
QString truncated(const QString &name)
{
    constexpr qsizetype maxLength = 120;
    constexpr qsizetype suffix = 16;
    return name.size() <= maxLength ? name : name.left(maxLength - suffix) + name.right(suffix);
}

} // namespace

bool isUtf8(std::string_view text)
{
    return QByteArrayView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8();
}

bool equalIgnoringCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return toLower(a) == toLower(b); });
}

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (auto end = text.find(separator); end != std::string_view::npos;
         end = text.find(separator)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

std::string percentDecoded(std::string_view text)
{
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '%' && i + 2 < text.size() && hexValue(text[i + 1]) >= 0 &&
                            hexValue(text[i + 2]) >= 0;
        if (!escape) {
            decoded += text[i];
            continue;
        }
        decoded += static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
        i += 2;
    }
    return decoded;
}

std::string percentEncoded(std::string_view text)
{
    std::string encoded;
    for (const char character : text) {
        if (isUnreserved(character)) {
            encoded += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        encoded += {'%', hexDigits[byte / 16], hexDigits[byte % 16]};
    }
    return encoded;
}

bool equalInConstantTime(std::string_view left, std::string_view right)
{
    const QByteArray a = sha256(left);
    const QByteArray b = sha256(right);
    int difference = 0;
    for (qsizetype i = 0; i < a.size(); ++i)
        difference |= a[i] ^ b[i];
    return difference == 0;
}

std::string sha256Hex(std::string_view bytes)
{
    return sha256(bytes).toHex().toStdString();
}

std::string newId()
{
    constexpr std::string_view symbols = "0123456789abcdefghjkmnpqrstvwxyz";
    std::string id(26, '0');
    auto time = static_cast<std::uint64_t>(now());
    for (std::size_t i = 10; i-- > 0; time /= symbols.size())
        id[i] = symbols[time % symbols.size()];
    for (std::size_t i = 10; i < id.size(); ++i)
        id[i] = symbols[QRandomGenerator::system()->bounded(32)];
    return id;
}

Instant now()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

std::string timestamp(Instant at)
{
    using namespace std::chrono;
    const sys_time<milliseconds> time{milliseconds(at)};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(floor<seconds>(time - day));
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d+0000",
                  static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text.data();
}

bool isCustomerId(std::string_view text)
{
    constexpr std::size_t maxLength = 128;
    return !text.empty() && text.size() <= maxLength &&
           std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

std::string safeFileName(std::string_view name)
{
    const std::string_view last = name.substr(name.find_last_of("/\\") + 1);
    QString safe = QString::fromUtf8(last.data(), static_cast<qsizetype>(last.size()));
    safe.removeIf([](QChar character) { return !character.isPrint() && !character.isSurrogate(); });
    while (safe.startsWith(QLatin1Char('.')))
        safe.remove(0, 1);
    return safe.isEmpty() ? "attachment" : truncated(safe).toStdString();
}

} // namespace tolvane::backend
