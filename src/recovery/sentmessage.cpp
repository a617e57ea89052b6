// SPDX-License-Identifier: MIT
#include "recovery/sentmessage.h"

#include "backend/apiclient.h"
#include "state/ticketdata.h"

#include <algorithm>

namespace tolvane {

SentMessage::SentMessage(const TicketData &store, const std::optional<QStringList> &knownTicketIds)
    : m_knownTicketIds(knownTicketIds)
    , m_text(store.message())
    , m_attachments(store.attachments())
{
    if (!store.ticket())
        return;
    m_ticketId = store.ticket()->id;
    for (const MessageDto &message : store.ticket()->messages)
        m_knownMessageIds.insert(message.id);
}

bool SentMessage::isDraftOf(const TicketData &store) const
{
    return store.message() == m_text && store.attachments() == m_attachments;
}

QCoro::Task<std::optional<TicketDto>> SentMessage::findTicket() const
{
    const SentMessage sent = *this;
    const QStringList ids = co_await sent.candidates();
    for (const QString &id : ids) {
        const APIClient client = APIClient::live();
        TicketDto ticket = co_await client.getTicket(id);
        if (sent.isIn(ticket))
            co_return std::optional(std::move(ticket));
    }
    co_return std::optional<TicketDto>();
}

/// The tickets that may contain the message.
QCoro::Task<QStringList> SentMessage::candidates() const
{
    if (m_ticketId)
        co_return QStringList{*m_ticketId};
    QStringList ids;
    if (!m_knownTicketIds)
        co_return ids; // An older ticket may begin with the same text.
    const APIClient client = APIClient::live();
    const QList<TicketPreviewDto> tickets = co_await client.getTickets();
    for (const TicketPreviewDto &ticket : tickets) {
        if (!m_knownTicketIds->contains(ticket.id))
            ids += ticket.id;
    }
    co_return ids;
}

bool SentMessage::isIn(const TicketDto &ticket) const
{
    return std::ranges::any_of(ticket.messages, [this](const MessageDto &message) {
        return message.sender.type == words::customer && message.content == m_text &&
               message.attachments.value_or(QStringList()).size() == m_attachments.size() &&
               !m_knownMessageIds.contains(message.id);
    });
}

} // namespace tolvane
