// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/fields.h"
#include "backend/wire/textpool.h"
#include "base/decodingerror.h"
#include "base/privateexport.h"
#include "base/ulid.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <bitset>
#include <optional>
#include <simdjson.h>

namespace tolvane::json {

/// The current position in a document, and the document's texts. Each step on the stack links to
/// the enclosing one, so the path has no cost until an error needs it.
class CodingPath
{
public:
    explicit CodingPath(TextPool &texts)
        : m_texts(texts)
    {
    }
    CodingPath(const CodingPath &parent, std::string_view key)
        : m_texts(parent.m_texts)
        , m_parent(&parent)
        , m_key(key)
    {
    }
    CodingPath(const CodingPath &parent, qsizetype index)
        : m_texts(parent.m_texts)
        , m_parent(&parent)
        , m_index(index)
    {
    }

    TextPool &texts() const { return m_texts; }

    /// The path as text, such as "messages[3].sender.type".
    QString text() const;

private:
    TextPool &m_texts;
    const CodingPath *m_parent = nullptr;
    std::string_view m_key;
    qsizetype m_index = -1;
};

[[noreturn]] void throwMismatch(const CodingPath &path, const char *expected);
[[noreturn]] void throwMissing(const CodingPath &path);
[[noreturn]] void throwNull(const CodingPath &path);

using Element = simdjson::dom::element;

TOLVANE_AUTOTEST_EXPORT void read(const Element &element, QString &value, const CodingPath &path);
TOLVANE_AUTOTEST_EXPORT void read(const Element &element, bool &value, const CodingPath &path);
TOLVANE_AUTOTEST_EXPORT void read(const Element &element, int &value, const CodingPath &path);
TOLVANE_AUTOTEST_EXPORT void read(const Element &element, float &value, const CodingPath &path);
TOLVANE_AUTOTEST_EXPORT void read(const Element &element, ULID &id, const CodingPath &path);

template <Record T>
TOLVANE_AUTOTEST_EXPORT void read(const Element &element, T &record, const CodingPath &path);

template <typename T>
TOLVANE_AUTOTEST_EXPORT void read(const Element &element, QList<T> &list, const CodingPath &path)
{
    simdjson::dom::array array;
    if (element.get(array))
        throwMismatch(path, "a list");
    list.reserve(static_cast<qsizetype>(array.size()));
    for (const Element item : array) {
        const CodingPath itemPath(path, list.size());
        read(item, list.emplaceBack(), itemPath);
    }
}

template <typename T>
void readField(const Element &element, std::optional<T> &value, const CodingPath &path)
{
    if (!element.is_null())
        read(element, value.emplace(), path);
}

template <typename T>
void readField(const Element &element, T &value, const CodingPath &path)
{
    if (element.is_null())
        throwNull(path);
    read(element, value, path);
}

template <typename T>
constexpr bool isOptional = false;
template <typename T>
constexpr bool isOptional<std::optional<T>> = true;

template <Record T>
TOLVANE_AUTOTEST_EXPORT void read(const Element &element, T &record, const CodingPath &path)
{
    simdjson::dom::object object;
    if (element.get(object))
        throwMismatch(path, "an object");
    std::bitset<std::tuple_size_v<decltype(fieldsOf<T>)>> seen;
    for (const auto [key, value] : object) {
        std::size_t index = 0;
        // The fold with "or" stops at the field with this key.
        const auto take = [&, key = key, value = value](const auto &field) {
            if (field.key != key) {
                ++index;
                return false;
            }
            // Duplicate keys: the last one wins and replaces the value entirely.
            if (seen.test(index))
                record.*field.member = std::remove_cvref_t<decltype(record.*field.member)>();
            readField(value, record.*field.member, CodingPath(path, field.key));
            seen.set(index);
            return true;
        };
        std::apply([&take](const auto &...fields) { (take(fields) || ...); }, fieldsOf<T>);
    }
    std::size_t index = 0;
    forEachField<T>([&](const auto &field) {
        using Value = std::remove_cvref_t<decltype(record.*field.member)>;
        if (!isOptional<Value> && !seen.test(index))
            throwMissing(CodingPath(path, field.key));
        ++index;
    });
}

} // namespace tolvane::json
