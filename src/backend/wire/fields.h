// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QHashFunctions>

#include <string_view>
#include <tuple>

namespace tolvane {

/// One field of a record: its key on the wire and its member.
template <typename Record, typename Value>
struct Field
{
    std::string_view key;
    Value Record::*member;
};

template <typename Record, typename Value>
constexpr Field<Record, Value> field(std::string_view key, Value Record::*member)
{
    return {key, member};
}

/// The fields of a record in declaration order: a std::tuple of Field. A type with a specialisation
/// is a record; decoding, encoding, the dictionary form and hashing are generic over it.
template <typename Record>
inline constexpr auto fieldsOf = nullptr;

template <typename T>
concept Record = !std::is_same_v<decltype(fieldsOf<T>), const std::nullptr_t>;

/// Calls `visit(field)` for each field in order.
template <Record T, typename Visit>
constexpr void forEachField(Visit &&visit)
{
    std::apply([&visit](const auto &...fields) { (visit(fields), ...); }, fieldsOf<T>);
}

template <typename T>
std::size_t hashValue(const T &value, std::size_t seed)
{
    return qHash(value, seed);
}

template <typename T>
std::size_t hashValue(const std::optional<T> &value, std::size_t seed)
{
    // An absent text and an empty one differ.
    return value ? hashValue(*value, seed ^ 1) : seed;
}

// No default for the seed: with one, Qt assumes a hash without a seed and adds an overload.
template <Record T>
std::size_t qHash(const T &record, std::size_t seed)
{
    forEachField<T>(
        [&](const auto &field) { seed = qHashMulti(seed, hashValue(record.*field.member, 0)); });
    return seed;
}

} // namespace tolvane
