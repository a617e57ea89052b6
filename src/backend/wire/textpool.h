// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <algorithm>
#include <array>
#include <string_view>

namespace tolvane::json {

/// Decodes the texts of one document. Short texts that repeat, such as the names and kinds of
/// senders, share their data: comparing bytes is cheaper than an allocation, and a conversation
/// needs less memory.
class TextPool
{
public:
    /// @param utf8 stays valid for as long as the pool
    QString text(std::string_view utf8)
    {
        if (utf8.size() > longest)
            return decoded(utf8);
        Entry &entry = m_recent.at(slotOf(utf8));
        if (entry.utf8 != utf8 || entry.text.isNull())
            entry = {.utf8 = utf8, .text = decoded(utf8)};
        return entry.text;
    }

private:
    struct Entry
    {
        std::string_view utf8;
        QString text;
    };

    static constexpr std::size_t longest = 64;
    static constexpr std::size_t slotCount = 64;

    static QString decoded(std::string_view utf8)
    {
        return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    }

    /// Identifiers often differ in their last characters only.
    static std::size_t slotOf(std::string_view utf8)
    {
        std::size_t hash = utf8.size();
        for (const char each : utf8.substr(utf8.size() - std::min<std::size_t>(utf8.size(), 4)))
            hash = hash * 31 + static_cast<unsigned char>(each);
        return hash % slotCount;
    }

    std::array<Entry, slotCount> m_recent;
};

} // namespace tolvane::json
