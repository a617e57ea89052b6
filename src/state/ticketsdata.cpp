// SPDX-License-Identifier: MIT
#include "state/ticketsdata.h"

#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "platform/async/awaitfuture.h"
#include "platform/destroyonworker.h"
#include "platform/logger.h"
#include "state/unreadtickets.h"

#include <utility>

namespace tolvane {

TicketsData::~TicketsData()
{
    m_state = State::idle(); // It shares the list.
    if (m_tickets.size() > smallList)
        destroyOnWorker(std::pair(std::move(m_tickets), std::move(m_lastValue)));
}

void TicketsData::setState(State state)
{
    m_state = std::move(state);
    Q_EMIT changed();
}

QCoro::Task<> TicketsData::load()
{
    auto replaced = std::exchange(m_lastValue, m_state.value());
    if (replaced && replaced->size() > smallList)
        destroyOnWorker(*std::move(replaced));
    setState(State::loading());
    return fetch(QStringLiteral("Error fetching tickets: "));
}

QCoro::Task<> TicketsData::reload()
{
    const auto self = shared_from_this();
    m_reloadTask.request_stop();
    const Clock::Instant now = platform().clock->monotonicNow();
    if (!m_lastReloadTime || now - *m_lastReloadTime >= minimumReloadInterval) {
        co_await silentReload();
        co_return;
    }
    Logger::shared().log(LogLevel::info,
                         QStringLiteral("Skipping reload - too soon since last reload"));
    m_reloadTask = std::stop_source();
    detach(reloadLater(m_reloadTask.get_token()));
}

QCoro::Task<> TicketsData::silentReload()
{
    m_lastReloadTime = platform().clock->monotonicNow();
    return fetch(QStringLiteral("Error fetching tickets in silent reload: "));
}

QCoro::Task<> TicketsData::fetch(QString failurePhrase)
{
    const auto self = shared_from_this();
    try {
        const APIClient client = APIClient::live();
        Tickets tickets = co_await client.getTickets();
        const int arrival = ++m_arrivalCount;
        UnreadTickets::shared()->beginList();
        Arrival compared = co_await compare(std::move(tickets));
        // A shorter list that arrived later may have been compared sooner.
        if (arrival < m_lastApplied)
            co_return;
        m_lastApplied = arrival;
        UnreadTickets::shared()->endList(std::move(compared.unread));
        setTickets(std::move(compared.update));
    } catch (...) {
        const ErrorPtr error = currentError();
        logFailure(failurePhrase, *error);
        m_lastApplied = ++m_arrivalCount;
        setState(State::error(error));
    }
}

/// Looks at each of the tickets, on a worker if there are many.
QCoro::Task<TicketsData::Arrival> TicketsData::compare(Tickets fetched) const
{
    const qsizetype count = fetched.size() + m_tickets.size();
    auto compared = [known = m_tickets, fetched = std::move(fetched)] {
        return Arrival{listUpdate(known, fetched), UnreadTickets::unreadIn(fetched)};
    };
    if (count <= smallList)
        co_return compared();
    QFuture<Arrival> comparing = platform().workers->run(std::move(compared));
    co_return co_await awaitFuture(comparing);
}

void TicketsData::setTickets(ListUpdate<TicketPreviewDto> update)
{
    m_update = std::move(update);
    m_tickets = m_update.after;
    setState(m_tickets.isEmpty() ? State::empty() : State::loaded(m_tickets));
    // The next comparison begins with this list.
    Tickets replaced = std::exchange(m_update, {}).before;
    if (!replaced.isSharedWith(m_tickets) && replaced.size() > smallList)
        destroyOnWorker(std::move(replaced));
}

QCoro::Task<> TicketsData::reloadLater(std::stop_token stop)
{
    const auto self = shared_from_this();
    try {
        co_await awaitFuture(platform().clock->sleep(std::chrono::seconds(1), stop));
    } catch (const CancellationError &) {
        co_return;
    }
    // The stop may have been requested between the end of the delay and this line.
    if (!stop.stop_requested())
        co_await silentReload();
}

} // namespace tolvane
