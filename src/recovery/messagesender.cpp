// SPDX-License-Identifier: MIT
#include "recovery/messagesender.h"

#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "base/errors.h"
#include "state/ticketdata.h"

namespace tolvane {

namespace {

/// Whether the backend may have a message although sending it has failed like this: the response
/// did not arrive, or could not be read.
bool isLostResponse(const Error &error)
{
    if (error.domain() != ErrorDomain::transport)
        return error.domain() == ErrorDomain::decoding;
    switch (error.code()) {
    case UrlError::networkConnectionLost:
    case UrlError::timedOut:
    case UrlError::badServerResponse:
    case UrlError::dataLengthExceedsMaximum:
        return true;
    default:
        return false;
    }
}

} // namespace

MessageSender::MessageSender(std::shared_ptr<TicketData> store)
    : m_store(std::move(store))
{
}

QCoro::Task<ErrorPtr> MessageSender::send()
{
    const auto self = shared_from_this();
    try {
        if (m_unconfirmed && m_unconfirmed->isDraftOf(*m_store)) {
            if (co_await confirm())
                co_return ErrorPtr();
        }
    } catch (...) {
        co_return currentError(); // Sending now might send it twice.
    }
    if (!m_store->ticket() && m_store->preview()) {
        co_await m_store->silentFetchTicket();
        if (m_store->fetchError())
            co_return m_store->fetchError();
    }
    if (!m_store->ticket() && !m_knownTicketIds) {
        const ErrorPtr error = co_await fetchKnownTicketIds();
        if (error)
            co_return error;
    }
    co_return co_await sendOnce();
}

/// The result is the failure of a connection that would not transmit the message either. If the
/// backend fails, the message is sent all the same: the list of tickets may be all that it lacks.
QCoro::Task<ErrorPtr> MessageSender::fetchKnownTicketIds()
{
    const auto self = shared_from_this();
    try {
        const APIClient client = APIClient::live();
        const QList<TicketPreviewDto> tickets = co_await client.getTickets();
        QStringList ids;
        for (const TicketPreviewDto &ticket : tickets)
            ids += ticket.id;
        m_knownTicketIds = ids;
    } catch (...) {
        const ErrorPtr error = currentError();
        logFailure(QStringLiteral("Error fetching tickets before a new one: "), *error);
        if (error->domain() == ErrorDomain::transport)
            co_return error;
    }
    co_return ErrorPtr();
}

QCoro::Task<ErrorPtr> MessageSender::sendOnce()
{
    const auto self = shared_from_this();
    m_unconfirmed.emplace(*m_store, m_knownTicketIds);
    if (m_store->ticket())
        co_await m_store->sendMessage();
    else
        co_await m_store->createTicket();
    const ErrorPtr error = m_store->sendError();
    if (!error || !isLostResponse(*error)) {
        m_unconfirmed.reset();
        co_return error;
    }
    try {
        if (co_await confirm())
            co_return ErrorPtr();
    } catch (...) {
        logFailure(QStringLiteral("Error looking for a sent message: "), *currentError());
    }
    co_return error;
}

/// Looks for the unconfirmed message. If the backend has it, it counts as sent.
QCoro::Task<bool> MessageSender::confirm()
{
    auto ticket = co_await m_unconfirmed->findTicket();
    if (!ticket)
        co_return false;
    m_unconfirmed.reset();
    m_store->confirmSent(*std::move(ticket));
    co_return true;
}

} // namespace tolvane
