// SPDX-License-Identifier: MIT
#include "ui/conversation/ticketheader.h"

#include "platform/platform.h"
#include "state/ticketdata.h"
#include "ui/kit/isolatedtext.h"

#include <algorithm>

namespace tolvane::ticketheader {

QString title(const TicketData &ticketData)
{
    const Bundle &bundle = *platform().bundle;
    if (!ticketData.preview())
        return bundle.string(QStringLiteral("ticket_new_discussion"));
    if (ticketData.ticket()) {
        const QList<MessageDto> &messages = ticketData.ticket()->messages;
        const auto last = std::find_if(messages.crbegin(), messages.crend(), [](const auto &each) {
            return each.sender.type != words::customer && each.sender.name;
        });
        if (last != messages.crend())
            return isolatedText(*last->sender.name);
    }
    return bundle.string(QStringLiteral("ticket_support"));
}

SupportAvailability subtitle(const TicketData &ticketData)
{
    if (ticketData.ticket() && !ticketData.ticket()->schedules.isEmpty())
        return supportAvailability(ticketData.ticket()->schedules);
    return {false, platform().bundle->string(QStringLiteral("ticket_support_team"))};
}

} // namespace tolvane::ticketheader
