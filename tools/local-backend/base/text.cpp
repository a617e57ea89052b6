// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDateTime>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTimeZone>

#include <algorithm>

namespace tolvane::backend {

using namespace Qt::StringLiterals;

bool isUtf8(std::string_view text)
{
    return QByteArrayView(text).isValidUtf8();
}

bool equalIgnoringCase(std::string_view left, std::string_view right)
{
    return QByteArrayView(left).compare(QByteArrayView(right), Qt::CaseInsensitive) == 0;
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (auto end = text.find(separator); end != text.npos; end = text.find(separator)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

std::string percentEncoded(std::string_view text)
{
    return QByteArray(text.data(), static_cast<qsizetype>(text.size()))
        .toPercentEncoding()
        .toStdString();
}

std::string sha256Hex(std::string_view bytes)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayView(bytes));
    return hash.result().toHex().toStdString();
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
    return QDateTime::currentMSecsSinceEpoch();
}

std::string timestamp(Instant at)
{
    return QDateTime::fromMSecsSinceEpoch(at, QTimeZone::utc())
        .toString(u"yyyy-MM-dd'T'HH:mm:ss'+0000'"_s)
        .toStdString();
}

bool isCustomerId(std::string_view text)
{
    constexpr std::size_t maxLength = 128;
    return !text.empty() && text.size() <= maxLength &&
           std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

std::string safeFileName(std::string_view name)
{
    constexpr qsizetype maxLength = 120;
    constexpr qsizetype suffix = 16;
    QString safe = QString::fromUtf8(name.substr(name.find_last_of("/\\") + 1));
    safe.removeIf([](QChar character) { return !character.isPrint() && !character.isSurrogate(); });
    while (safe.startsWith(u'.'))
        safe.remove(0, 1);
    // Long names keep their suffix, from which clients derive the type.
    if (safe.size() > maxLength)
        safe = safe.left(maxLength - suffix) + safe.right(suffix);
    return safe.isEmpty() ? "attachment" : safe.toStdString();
}

} // namespace tolvane::backend
