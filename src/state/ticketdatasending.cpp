// SPDX-License-Identifier: MIT
// Sending: the draft becomes a new ticket, or a further message of the ticket.
#include "analytics/manager.h"
#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "base/errors.h"
#include "base/textlength.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "state/pollingservice.h"
#include "state/ticketdata.h"

namespace tolvane {

using Keys = TolvaneAnalyticsEvent::PropertyKeys;

namespace {

TolvaneAnalyticsManager &analytics()
{
    return TolvaneAnalyticsManager::shared();
}

} // namespace

void TicketData::beginSending()
{
    const bool isFirst = !std::exchange(m_isSendingMessage, true);
    if (std::exchange(m_sendError, nullptr))
        Q_EMIT errorsChanged();
    if (isFirst)
        Q_EMIT busyChanged();
}

QCoro::Task<> TicketData::createTicket()
{
    const auto self = shared_from_this();
    if (m_message.isEmpty() && m_attachments.isEmpty())
        co_return;
    beginSending();
    try {
        const CreateTicketDto record{.message = m_message,
                                     .channel = QStringLiteral("ios"),
                                     .deviceInfo = DeviceInfoDto::current()};
        const APIClient client = APIClient::live();
        ticketWasCreated(co_await client.createTicket(record, m_attachments));
    } catch (...) {
        sendingFailed(QStringLiteral("Error creating ticket: "), QStringLiteral("createTicket"));
    }
}

QCoro::Task<> TicketData::sendMessage()
{
    const auto self = shared_from_this();
    if (!m_ticket)
        co_return;
    beginSending();
    try {
        const SendMessageDto record{.message = m_message, .attachments = m_attachments};
        const APIClient client = APIClient::live();
        const MessageDto sent = co_await client.sendMessage(m_ticket->id, record);
        messageWasSent(sent);
    } catch (...) {
        sendingFailed(QStringLiteral("Error sending message: "), QStringLiteral("sendMessage"));
    }
}

QVariantMap TicketData::sentProperties(bool isFirstMessage) const
{
    return {{Keys::messageLength, characterCount(m_message)},
            {Keys::attachmentCount, m_attachments.size()},
            {Keys::isFirstMessage, isFirstMessage},
            {Keys::ticketId, m_ticket->id}};
}

void TicketData::ticketWasCreated(TicketDto ticket)
{
    setTicket(std::move(ticket));
    platform().notificationCenter->post(notifications::didSendMessage,
                                        QVariantMap{{QStringLiteral("ticketId"), m_ticket->id},
                                                    {QStringLiteral("message"), m_message}});
    const QVariantMap properties = sentProperties(true);
    analytics().track(TolvaneAnalyticsEvent::Chat::ticketCreated, properties);
    analytics().track(TolvaneAnalyticsEvent::Chat::messageSent, properties);
    PollingService::shared()->startPolling(m_ticket->id, m_ticket->messages.size());
    m_newTicket = false;
    sendingSucceeded();
}

void TicketData::messageWasSent(const MessageDto &message)
{
    appendMessage(message);
    platform().notificationCenter->post(
        notifications::didSendMessage,
        QVariantMap{{QStringLiteral("ticketId"), m_ticket->id},
                    {QStringLiteral("message"), QVariant::fromValue(message)},
                    {QStringLiteral("messageId"), message.id}});
    QVariantMap properties = sentProperties(false);
    properties.insert(Keys::messageId, message.id);
    analytics().track(TolvaneAnalyticsEvent::Chat::messageSent, properties);
    PollingService::shared()->startPolling(m_ticket->id, m_ticket->messages.size());
    sendingSucceeded();
}

void TicketData::confirmSent(TicketDto ticket)
{
    setTicket(std::move(ticket));
    m_newTicket = false;
    PollingService::shared()->startPolling(m_ticket->id, m_ticket->messages.size());
    sendingSucceeded();
}

void TicketData::sendingSucceeded()
{
    const bool hadMessage = !std::exchange(m_message, {}).isEmpty();
    const bool hadAttachments = !std::exchange(m_attachments, {}).isEmpty();
    m_isSendingMessage = false;
    // Another operation that ran at the same time may have failed.
    const bool hadError = std::exchange(m_sendError, nullptr) != nullptr;
    Q_EMIT ticketChanged();
    if (hadError)
        Q_EMIT errorsChanged();
    if (hadMessage)
        Q_EMIT messageChanged();
    if (hadAttachments)
        Q_EMIT attachmentsChanged();
    Q_EMIT busyChanged();
}

void TicketData::sendingFailed(const QString &phrase, const QString &context)
{
    m_sendError = currentError();
    reportFailure(phrase, context, *m_sendError);
    m_isSendingMessage = false;
    Q_EMIT errorsChanged();
    Q_EMIT busyChanged();
}

} // namespace tolvane
