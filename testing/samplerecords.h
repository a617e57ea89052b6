// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/json.h"
#include "testing/fixture.h"

namespace tolvane::test {

inline MessageDto makeMessage(const QString &id, const QString &senderType = words::customer,
                              const QString &ticketId = QStringLiteral("t1"))
{
    return {.id = id,
            .ticketId = ticketId,
            .sender = {.id = QStringLiteral("s-") + senderType,
                       .name = {},
                       .profilePicture = {},
                       .type = senderType},
            .content = QStringLiteral("text of ") + id,
            .isRead = false,
            .timestamp = QStringLiteral("2026-03-14T12:00:00+0000"),
            .attachments = {}};
}

inline TicketDto makeTicket(const QList<MessageDto> &messages,
                            const QString &id = QStringLiteral("t1"))
{
    return {.id = id,
            .state = QStringLiteral("open"),
            .assignee = words::aiAgent,
            .messages = messages,
            .schedules = {}};
}

inline TicketPreviewDto makePreview(const QString &id = QStringLiteral("t1"))
{
    return {.id = id,
            .state = QStringLiteral("open"),
            .lastMessage = makeMessage(QStringLiteral("last"), words::customer, id)};
}

/// A branding with the same color everywhere.
inline BrandingDto sampleBranding()
{
    BrandingDto branding;
    forEachField<BrandingDto>([&](const auto &field) {
        if constexpr (std::is_same_v<std::decay_t<decltype(branding.*field.member)>, QString>)
            branding.*field.member = QStringLiteral("#205d4e");
    });
    return branding;
}

/// The records as a JSON array.
template <typename Record>
QByteArray encodeList(const QList<Record> &records)
{
    QByteArrayList objects;
    for (const Record &record : records)
        objects += tolvane::json::encode(record);
    return '[' + objects.join(',') + ']';
}

template <typename Record>
UserInfo userInfo(const Record &record)
{
    return UserInfo::fromRecord(record, tolvane::json::dictionary<Record>);
}

template <typename Record>
UrlResponse jsonResponse(const Record &record)
{
    return json(tolvane::json::encode(record));
}

} // namespace tolvane::test
