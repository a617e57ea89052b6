// SPDX-License-Identifier: MIT
#include "samples.h"

#include "backend/wire/json.h"

namespace tolvane::bench {

QByteArray ticketJson(int messageCount)
{
    TicketDto ticket{.id = QStringLiteral("ticket"),
                     .state = QStringLiteral("open"),
                     .assignee = words::aiAgent,
                     .messages = {},
                     .schedules = {}};
    for (int i = 0; i < messageCount; ++i) {
        const bool isAgent = i % 2 == 1;
        ticket.messages.append(
            {.id = QStringLiteral("01j%1").arg(i, 23, 10, QLatin1Char('0')),
             .ticketId = ticket.id,
             .sender = {.id = isAgent ? QStringLiteral("ai") : QStringLiteral("customer"),
                        .name = isAgent ? std::optional(QStringLiteral("Assistant")) : std::nullopt,
                        .profilePicture = {},
                        .type = isAgent ? words::aiAgent : words::customer},
             .content =
                 QStringLiteral("Message %1: where is my parcel? It \"should\" have been here "
                                "on Monday – thanks for looking.")
                     .arg(i),
             .isRead = true,
             .timestamp = QStringLiteral("2026-03-14T12:00:00+0000"),
             .attachments = {}});
    }
    return json::encode(ticket);
}

} // namespace tolvane::bench
