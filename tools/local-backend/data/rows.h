// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"
#include "data/database.h"

namespace tolvane::backend {

/// The first columns of each query for messages. Each attachment has its own row.
#define MESSAGE_COLUMNS                                                                            \
    "m.id, m.author, m.content, m.is_read, m.at, m.person_name, m.person_picture, a.hash, a.name"
inline constexpr int messageColumns = 9;

/// The message of such a row, without its attachments.
Message messageFromRow(const Statement &row, const std::string &customer,
                       const std::string &ticketId);
void addAttachmentFromRow(const Statement &row, Message &message);

/// A message of this moment, which customers have read if it is their own.
Message newMessage(const std::string &ticketId, Author author, const std::string &content);
/// Sets the message's attachments. Returns its `seq`.
std::int64_t insertMessage(Database &database, Message &message,
                           const std::vector<Upload> &uploads = {});

/// Inserts a picture that is not attached to a message. Returns "HASH/NAME".
std::string insertPicture(Database &database, const Upload &picture);

enum class ReplyKind { Message, Introduction };
ReplyKind replyKindNamed(std::string_view name);
void enqueueReply(Database &database, ReplyKind kind, std::int64_t messageSeq, Instant due);

} // namespace tolvane::backend
