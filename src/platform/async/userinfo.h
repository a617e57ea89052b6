// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QVariantMap>

#include <any>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tolvane {

/// The content of a broadcast: a dictionary, a typed record, or both forms of the same content.
/// The form that the poster did not have is created when an observer reads it. Immutable and cheap
/// to copy; safe from any thread.
class TOLVANE_PRIVATE_EXPORT UserInfo
{
public:
    /// A broadcast without content.
    UserInfo() = default;
    /// A dictionary without a corresponding record.
    UserInfo(const QVariantMap &dictionary);

    template <typename Record>
    static UserInfo fromRecord(Record record, QVariantMap (*encode)(const Record &))
    {
        return UserInfo(std::move(record), [encode](const std::any &content) {
            return encode(*std::any_cast<Record>(&content));
        });
    }

    /// The content of a dictionary from outside the library. It is decoded once, and has no record
    /// if `decode` throws an Error.
    template <typename Record>
    static UserInfo fromDictionary(const QVariantMap &dictionary,
                                   Record (*decode)(const QVariantMap &))
    {
        return UserInfo(dictionary,
                        [decode](const QVariantMap &content) { return std::any(decode(content)); });
    }

    /// Absent if the broadcast has no content.
    std::optional<QVariantMap> dictionary() const;

    /// Null if the content is not a record of this type. Valid as long as this object or a copy.
    template <typename Record>
    const Record *record() const
    {
        return std::any_cast<Record>(&anyRecord());
    }

private:
    using Encode = std::function<QVariantMap(const std::any &)>;
    using Decode = std::function<std::any(const QVariantMap &)>;
    struct Content;

    UserInfo(std::any record, Encode encode);
    UserInfo(const QVariantMap &dictionary, Decode decode);

    const std::any &anyRecord() const;

    std::shared_ptr<Content> m_content;
};

} // namespace tolvane
