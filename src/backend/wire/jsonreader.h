// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/fields.h"
#include "backend/wire/textpool.h"
#include "base/decodingerror.h"
#include "base/privateexport.h"
#include "base/ulid.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <array>
#include <bitset>
#include <optional>
#include <simdjson.h>
#include <string_view>
#include <utility>

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

/// The fields of a record as an array, to find one by its key.
template <Record T>
class FieldReaders
{
public:
    static constexpr std::size_t count = std::tuple_size_v<decltype(fieldsOf<T>)>;

    struct Reader
    {
        std::string_view key;
        bool isRequired;
        void (*reset)(T &record);
        void (*read)(const Element &element, T &record, const CodingPath &path);
    };

    static const Reader &at(std::size_t index) { return readers[index]; }

    /// The index of the field with this key, or `count`. The search begins at an index, because
    /// servers mostly write the fields in the order of the table.
    static std::size_t indexOf(std::string_view key, std::size_t expected)
    {
        for (std::size_t index = expected; index < count; ++index) {
            if (readers[index].key == key)
                return index;
        }
        for (std::size_t index = 0; index < expected; ++index) {
            if (readers[index].key == key)
                return index;
        }
        return count;
    }

private:
    template <std::size_t index>
    static auto &valueIn(T &record)
    {
        return record.*std::get<index>(fieldsOf<T>).member;
    }
    template <std::size_t index>
    using Value = std::remove_cvref_t<decltype(valueIn<index>(std::declval<T &>()))>;

    template <std::size_t index>
    static void resetField(T &record)
    {
        valueIn<index>(record) = Value<index>();
    }
    template <std::size_t index>
    static void readFieldAt(const Element &element, T &record, const CodingPath &path)
    {
        readField(element, valueIn<index>(record), path);
    }
    template <std::size_t... index>
    static constexpr auto make(std::index_sequence<index...>)
    {
        return std::array{Reader{std::get<index>(fieldsOf<T>).key, !isOptional<Value<index>>,
                                 &resetField<index>, &readFieldAt<index>}...};
    }

    static constexpr std::array<Reader, count> readers = make(std::make_index_sequence<count>());
};

template <Record T>
TOLVANE_AUTOTEST_EXPORT void read(const Element &element, T &record, const CodingPath &path)
{
    using Readers = FieldReaders<T>;
    simdjson::dom::object object;
    if (element.get(object))
        throwMismatch(path, "an object");
    std::bitset<Readers::count> seen;
    std::size_t expected = 0;
    for (const auto [key, value] : object) {
        const std::size_t index = Readers::indexOf(key, expected);
        if (index == Readers::count)
            continue;
        expected = index + 1;
        const auto &field = Readers::at(index);
        // Duplicate keys: the last one wins and replaces the value entirely.
        if (seen.test(index))
            field.reset(record);
        field.read(value, record, CodingPath(path, field.key));
        seen.set(index);
    }
    for (std::size_t index = 0; index < Readers::count; ++index) {
        if (!seen.test(index) && Readers::at(index).isRequired)
            throwMissing(CodingPath(path, Readers::at(index).key));
    }
}

} // namespace tolvane::json
