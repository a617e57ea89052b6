// SPDX-License-Identifier: MIT
#include "state/ticketsdata.h"

#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "platform/async/awaitfuture.h"
#include "platform/logger.h"
#include "platform/platform.h"
#include "state/unreadtickets.h"

namespace tolvane {

void TicketsData::setState(State state)
{
    m_state = std::move(state);
    Q_EMIT changed();
}

QCoro::Task<> TicketsData::load()
{
    m_lastValue = m_state.value();
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
        UnreadTickets::shared()->setTickets(tickets);
        setState(tickets.isEmpty() ? State::empty() : State::loaded(std::move(tickets)));
    } catch (...) {
        const ErrorPtr error = currentError();
        logFailure(failurePhrase, *error);
        setState(State::error(error));
    }
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
