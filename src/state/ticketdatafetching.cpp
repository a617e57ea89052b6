// SPDX-License-Identifier: MIT
// Fetching: the ticket of the backend replaces the known one.
#include "analytics/manager.h"
#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "base/errors.h"
#include "platform/async/awaitfuture.h"
#include "platform/destroyonworker.h"
#include "state/ticketdata.h"
#include "state/unreadtickets.h"

#include <utility>

namespace tolvane {

using Keys = TolvaneAnalyticsEvent::PropertyKeys;

void TicketData::setTicket(TicketDto ticket)
{
    const bool isSameList = m_ticket &&
                            m_ticket->messages.constData() == ticket.messages.constData() &&
                            m_ticket->messages.size() == ticket.messages.size();
    m_messagesGeneration += !isSameList;
    auto replaced = std::exchange(m_ticket, std::move(ticket));
    m_messageIds.reset();
    m_messageSearches = 0;
    if (replaced && replaced->messages.size() > smallList)
        destroyOnWorker(*std::move(replaced));
}

/// The fetched ticket shares the known list of messages if it is equal, so that views detect an
/// unchanged list at once.
QFuture<TicketData::Compared> TicketData::compare(TicketDto fetched) const
{
    QList<MessageDto> known = m_ticket ? m_ticket->messages : QList<MessageDto>();
    return platform().workers->run([fetched = std::move(fetched), known = std::move(known),
                                    generation = m_messagesGeneration,
                                    derive = m_derive]() mutable {
        Compared result{.ticket = std::move(fetched), .derived = nullptr};
        QList<MessageDto> &messages = result.ticket.messages;
        if (messages == known) {
            messages = known;
        } else if (derive && known.size() + messages.size() > smallList) {
            result.derived = derive(known, messages);
            result.derived->before = {.generation = generation, .count = known.size()};
        }
        return result;
    });
}

void TicketData::setFetched(Compared fetched)
{
    const qsizetype count = fetched.ticket.messages.size();
    setTicket(std::move(fetched.ticket));
    m_derived = std::move(fetched.derived);
    if (m_derived)
        m_derived->after = {.generation = m_messagesGeneration, .count = count};
}

QCoro::Task<> TicketData::fetchTicket(std::optional<QString> ticketId, std::stop_token stop)
{
    return fetch(std::move(ticketId), Fetch::visible, std::move(stop));
}

QCoro::Task<> TicketData::silentFetchTicket(std::optional<QString> ticketId, std::stop_token stop)
{
    return fetch(std::move(ticketId), Fetch::silent, std::move(stop));
}

QCoro::Task<> TicketData::fetch(std::optional<QString> wanted, Fetch kind, std::stop_token stop)
{
    const auto self = shared_from_this();
    const std::optional<QString> id = wanted ? wanted : ticketId();
    if (!id)
        co_return;
    beginFetching(kind);
    const int stateUpdates = m_stateUpdates;
    bool isFetched = false;
    try {
        const APIClient client = APIClient::live();
        TicketDto ticket = co_await client.getTicket(*id);
        Compared fetched{.ticket = std::move(ticket), .derived = nullptr};
        if (m_ticket || fetched.ticket.messages.size() > smallList) {
            QFuture<Compared> comparing = compare(std::move(fetched.ticket));
            fetched = co_await awaitFuture(comparing);
        }
        if (stop.stop_requested())
            throw UrlError(UrlError::cancelled);
        setFetched(std::move(fetched));
        // The response may be older than an update that arrived while it was on its way.
        if (m_stateUpdates != stateUpdates)
            m_ticket->state = m_preview->state;
        // Fetching has marked the messages as read.
        UnreadTickets::shared()->markRead(m_ticket->id);
        isFetched = true;
        if (kind == Fetch::visible) {
            TolvaneAnalyticsManager::shared().track(
                TolvaneAnalyticsEvent::Chat::ticketViewed,
                {{QStringLiteral("message_count"), m_ticket->messages.size()},
                 {QStringLiteral("ticket_state"), m_ticket->state},
                 {Keys::ticketId, m_ticket->id}});
        }
    } catch (...) {
        m_fetchError = currentError();
        const QString phrase = QStringLiteral("Error fetching ticket: ");
        if (kind == Fetch::visible)
            reportFailure(phrase, QStringLiteral("fetchTicket"), *m_fetchError);
        else
            logFailure(phrase, *m_fetchError);
    }
    const bool wasVisible = kind == Fetch::visible && std::exchange(m_isFetchingTicket, false);
    if (isFetched)
        Q_EMIT ticketChanged();
    else
        Q_EMIT errorsChanged();
    m_derived.reset(); // Views share parts of it, and would have to copy them to change them.
    if (wasVisible)
        Q_EMIT busyChanged();
}

void TicketData::beginFetching(Fetch kind)
{
    const bool isFirst = !std::exchange(m_hasAttemptedFetch, true);
    const bool isVisible = kind == Fetch::visible && !std::exchange(m_isFetchingTicket, true);
    if (std::exchange(m_fetchError, nullptr))
        Q_EMIT errorsChanged();
    if (isFirst || isVisible)
        Q_EMIT busyChanged();
}

QCoro::Task<> TicketData::refreshLater(QString ticketId, std::stop_token stop)
{
    const auto self = shared_from_this();
    try {
        co_await awaitFuture(platform().clock->sleep(std::chrono::seconds(1), stop));
    } catch (const CancellationError &) {
        co_return;
    }
    if (!stop.stop_requested())
        co_await silentFetchTicket(ticketId);
}

} // namespace tolvane
