// SPDX-License-Identifier: MIT
#include "platform/async/userinfo.h"

#include <tolvane/error.h>

#include <mutex>

namespace tolvane {

/// Either the record or the dictionary is complete from the start.
struct UserInfo::Content
{
    QVariantMap dictionary;
    std::any record;
    Encode encode;
    Decode decode;
    std::once_flag isConverted;
};

UserInfo::UserInfo(const QVariantMap &dictionary)
    : UserInfo(dictionary, Decode())
{
}

UserInfo::UserInfo(std::any record, Encode encode)
    : m_content(std::make_shared<Content>())
{
    m_content->record = std::move(record);
    m_content->encode = std::move(encode);
}

UserInfo::UserInfo(const QVariantMap &dictionary, Decode decode)
    : m_content(std::make_shared<Content>())
{
    m_content->dictionary = dictionary;
    m_content->decode = std::move(decode);
}

std::optional<QVariantMap> UserInfo::dictionary() const
{
    if (!m_content)
        return std::nullopt;
    Content &content = *m_content;
    if (content.encode) {
        std::call_once(content.isConverted,
                       [&content] { content.dictionary = content.encode(content.record); });
    }
    return content.dictionary;
}

const std::any &UserInfo::anyRecord() const
{
    static const std::any noRecord;
    if (!m_content)
        return noRecord;
    Content &content = *m_content;
    if (content.decode) {
        std::call_once(content.isConverted, [&content] {
            try {
                content.record = content.decode(content.dictionary);
            } catch (const Error &) {
                return; // A push may have any content; observers of the record ignore it.
            }
        });
    }
    return content.record;
}

} // namespace tolvane
