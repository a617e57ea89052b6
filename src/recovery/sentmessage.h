// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"

#include <QCoroTask>
#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <optional>

namespace tolvane {

class TicketData;

/// A message as it is sent, to find it at the backend when the response is lost.
class SentMessage
{
public:
    /// Copies the store's draft, and the ids of its messages.
    /// @param knownTicketIds the tickets of the list; unset if the list is not known
    SentMessage(const TicketData &store, const std::optional<QStringList> &knownTicketIds);

    /// Whether the store's draft is this message.
    bool isDraftOf(const TicketData &store) const;

    /// The ticket that has received this message since it was sent; absent if no ticket has.
    /// @throws if the backend cannot be asked
    QCoro::Task<std::optional<TicketDto>> findTicket() const;

private:
    QCoro::Task<QStringList> candidates() const;
    bool isIn(const TicketDto &ticket) const;

    std::optional<QString> m_ticketId;
    std::optional<QStringList> m_knownTicketIds;
    QSet<QString> m_knownMessageIds;
    QString m_text;
    QList<AttachmentDto> m_attachments;
};

} // namespace tolvane
