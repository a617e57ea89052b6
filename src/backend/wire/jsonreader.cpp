// SPDX-License-Identifier: MIT
#include "backend/wire/jsonreader.h"

#include <limits>

namespace tolvane::json {

QString CodingPath::text() const
{
    if (!m_parent)
        return {};
    const QString parent = m_parent->text();
    if (m_index >= 0)
        return QStringLiteral("%1[%2]").arg(parent).arg(m_index);
    const QString key = QString::fromUtf8(m_key.data(), static_cast<qsizetype>(m_key.size()));
    return parent.isEmpty() ? key : parent + QLatin1Char('.') + key;
}

void throwMismatch(const CodingPath &path, const char *expected)
{
    throw DecodingError(DecodingError::typeMismatch, path.text(),
                        QStringLiteral("expected %1.").arg(QLatin1String(expected)));
}

void throwMissing(const CodingPath &path)
{
    throw DecodingError(DecodingError::keyNotFound, path.text(), QStringLiteral("is missing."));
}

void throwNull(const CodingPath &path)
{
    throw DecodingError(DecodingError::valueNotFound, path.text(), QStringLiteral("is null."));
}

void read(const Element &element, QString &value, const CodingPath &path)
{
    std::string_view text;
    if (element.get(text))
        throwMismatch(path, "a text");
    value = path.texts().text(text);
}

void read(const Element &element, bool &value, const CodingPath &path)
{
    if (element.get(value))
        throwMismatch(path, "a Boolean");
}

void read(const Element &element, int &value, const CodingPath &path)
{
    std::int64_t number = 0;
    if (element.get(number) || number < std::numeric_limits<int>::min() ||
        number > std::numeric_limits<int>::max())
        throwMismatch(path, "a whole number");
    value = static_cast<int>(number);
}

void read(const Element &element, float &value, const CodingPath &path)
{
    double number = 0;
    if (element.get(number))
        throwMismatch(path, "a number");
    value = static_cast<float>(number);
}

void read(const Element &element, ULID &id, const CodingPath &path)
{
    QString text;
    read(element, text, path);
    const std::optional<ULID> parsed = ULID::parse(text);
    if (!parsed) {
        throw DecodingError(DecodingError::dataCorrupted, path.text(),
                            QStringLiteral("Attempted to decode ULID from invalid ULID string."));
    }
    id = *parsed;
}

} // namespace tolvane::json
