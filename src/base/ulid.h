// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QDateTime>
#include <QtCore/QHashFunctions>
#include <QtCore/QString>

#include <array>
#include <compare>
#include <cstdint>
#include <optional>

namespace tolvane {

/// A universally unique, lexicographically sortable identifier: 48 bits of milliseconds since the
/// Unix epoch, then 80 random bits, most significant byte first.
///
/// The text form is 26 characters of Crockford's Base32, in lower case here, where it serves as the
/// customer id. Ids of the same millisecond are not ordered.
class TOLVANE_PRIVATE_EXPORT ULID
{
public:
    using Bytes = std::array<std::uint8_t, 16>;

    explicit ULID(const Bytes &bytes = {})
        : ulid(bytes)
    {
    }

    /// Generates an id for a time between the epoch and the year 10889.
    static ULID generate(const QDateTime &time);

    /// Accepts both cases and the aliases O, I and L; absent for any other text. If the first
    /// character is above 7, its two excess bits are lost.
    static std::optional<ULID> parse(const QString &text);

    /// Also the JSON form.
    QString description() const;

    const Bytes &bytes() const { return ulid; }

    auto operator<=>(const ULID &) const = default;

private:
    Bytes ulid;
};

std::size_t qHash(const ULID &id, std::size_t seed = 0);

} // namespace tolvane
