// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"
#include "data/database.h"

namespace tolvane::backend {

/// The first columns of each query for messages. Each attachment has its own row.
#define MESSAGE_COLUMNS                                                                            \
    "m.id, m.author, m.content, m.is_read, m.at, m.person_name, "                                  \
    "m.person_picture, a.hash, a.name"
inline constexpr int messageColumns = 9;

/// The message of such a row, without its attachments.
Message messageFromRow(const Statement &row, const std::string &customer,
                       const std::string &ticketId);
void addAttachmentFromRow(const Statement &row, Message &message);

} // namespace tolvane::backend
