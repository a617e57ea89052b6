// SPDX-License-Identifier: MIT
#include "data/messagerows.h"

namespace tolvane::backend {

Message messageFromRow(const Statement &row, const std::string &customer,
                       const std::string &ticketId)
{
    Message message;
    message.id = row.text(0);
    message.ticketId = ticketId;
    message.author = authorNamed(row.text(1));
    if (message.author == Author::Customer)
        message.customerId = customer;
    message.content = row.text(2);
    message.isRead = row.number(3) != 0;
    message.at = row.number(4);
    if (const auto name = row.optionalText(5))
        message.person = Person{*name, row.text(6)};
    return message;
}

void addAttachmentFromRow(const Statement &row, Message &message)
{
    if (const std::string hash = row.text(7); !hash.empty())
        message.attachments.push_back(filePath(hash, row.text(8)));
}

} // namespace tolvane::backend
