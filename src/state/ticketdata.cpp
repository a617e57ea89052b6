// SPDX-License-Identifier: MIT
#include "state/ticketdata.h"

#include "analytics/manager.h"
#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "base/errors.h"
#include "platform/async/awaitfuture.h"
#include "platform/logger.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "state/unreadtickets.h"

#include <algorithm>
#include <array>

namespace tolvane {

using Keys = TolvaneAnalyticsEvent::PropertyKeys;

namespace {

/// The content to show of a ticket that is being fetched.
TicketDto provisionalTicket(const TicketPreviewDto &preview)
{
    return {.id = preview.id,
            .state = preview.state,
            .assignee = QStringLiteral("unknown"),
            .messages = {preview.lastMessage},
            .schedules = {}};
}

/// The fetched ticket, sharing the known list of messages if it is equal, so that views detect an
/// unchanged list at once. Comparing thousands of messages takes time.
QFuture<TicketDto> sharingEqualMessages(TicketDto fetched, const QList<MessageDto> &known)
{
    return platform().workers->run([fetched = std::move(fetched), known]() mutable {
        if (fetched.messages == known)
            fetched.messages = known;
        return std::move(fetched);
    });
}

void track(const QString &name, const QVariantMap &properties)
{
    TolvaneAnalyticsManager::shared().track(name, properties);
}

} // namespace

TicketData::TicketData(std::optional<TicketPreviewDto> preview)
    : m_preview(std::move(preview))
{
}

void TicketData::setNewTicket(bool newTicket)
{
    if (std::exchange(m_newTicket, newTicket) != newTicket)
        Q_EMIT ticketChanged();
}

void TicketData::setMessage(const QString &message)
{
    if (m_message == message)
        return;
    m_message = message;
    Q_EMIT messageChanged();
}

void TicketData::setAttachments(const QList<AttachmentDto> &attachments)
{
    QList<AttachmentDto> distinct;
    for (const AttachmentDto &attachment : attachments) {
        if (!distinct.contains(attachment))
            distinct.append(attachment);
    }
    if (m_attachments == distinct)
        return;
    m_attachments = distinct;
    Q_EMIT attachmentsChanged();
}

std::optional<QString> TicketData::ticketId() const
{
    if (m_ticket)
        return m_ticket->id;
    if (m_preview)
        return m_preview->id;
    return std::nullopt;
}

bool TicketData::isSendDisabled() const
{
    return (m_message.isEmpty() && m_attachments.isEmpty()) || m_isSendingMessage;
}

bool TicketData::isAITyping() const
{
    return m_ticket && m_ticket->assignee == words::aiAgent && !m_ticket->messages.isEmpty() &&
           m_ticket->messages.constLast().sender.type == words::customer;
}

TicketData::State TicketData::state() const
{
    if (m_isFetchingTicket) {
        // A conversation that the host opens by its id has a preview without a message.
        return m_preview && !m_preview->lastMessage.id.isEmpty()
                   ? State::loadingWithPreview(provisionalTicket(*m_preview))
                   : State::loading();
    }
    if (m_fetchError)
        return State::error(m_fetchError);
    if (m_ticket)
        return State::loaded(*m_ticket);
    return m_hasAttemptedFetch || m_newTicket ? State::empty() : State::loading();
}

void TicketData::setTicket(TicketDto ticket)
{
    const bool isSameList = m_ticket &&
                            m_ticket->messages.constData() == ticket.messages.constData() &&
                            m_ticket->messages.size() == ticket.messages.size();
    m_messagesGeneration += !isSameList;
    // Destroying thousands of messages would block the main thread.
    auto replaced = std::exchange(m_ticket, std::move(ticket));
    m_messageIds.reset();
    m_messageSearches = 0;
    if (replaced)
        platform().workers->post([old = std::make_shared<TicketDto>(*std::move(replaced))] {});
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
        TicketDto fetched = co_await client.getTicket(*id);
        if (m_ticket) {
            QFuture<TicketDto> compared =
                sharingEqualMessages(std::move(fetched), m_ticket->messages);
            fetched = co_await awaitFuture(compared);
        }
        if (stop.stop_requested())
            throw UrlError(UrlError::cancelled);
        setTicket(std::move(fetched));
        // The response may be older than an update that arrived while it was on its way.
        if (m_stateUpdates != stateUpdates)
            m_ticket->state = m_preview->state;
        // Fetching has marked the messages as read.
        UnreadTickets::shared()->markRead(m_ticket->id);
        isFetched = true;
        if (kind == Fetch::visible) {
            track(TolvaneAnalyticsEvent::Chat::ticketViewed,
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

bool TicketData::hasMessage(const QString &id)
{
    if (!m_ticket)
        return false;
    const QList<MessageDto> &messages = m_ticket->messages;
    // The set costs as much as some thirty searches, so it is for bursts of messages only.
    constexpr int searchesBeforeSet = 30;
    if (!m_messageIds && ++m_messageSearches > searchesBeforeSet) {
        m_messageIds.emplace();
        m_messageIds->reserve(messages.size());
        for (const MessageDto &message : messages)
            m_messageIds->insert(message.id);
    }
    return m_messageIds ? m_messageIds->contains(id)
                        : std::ranges::find(messages, id, &MessageDto::id) != messages.end();
}

void TicketData::appendMessage(const MessageDto &message)
{
    m_ticket->messages.append(message);
    if (m_messageIds)
        m_messageIds->insert(message.id);
}

NotificationCenter::Observation TicketData::observe()
{
    using Handler = void (TicketData::*)(const NotificationCenter::UserInfo &);
    const auto subscribe = [this](const QString &name, Handler handler) {
        return platform().notificationCenter->observe(
            name, NotificationCenter::Delivery::mainThread,
            [store = weak_from_this(), handler](const NotificationCenter::UserInfo &userInfo) {
                if (const auto self = store.lock())
                    (self.get()->*handler)(userInfo);
            });
    };
    using Observations = std::array<NotificationCenter::Observation, 2>;
    return std::make_shared<Observations>(Observations{
        subscribe(notifications::didReceiveMessage, &TicketData::onMessageNotification),
        subscribe(notifications::didReceiveStateUpdate, &TicketData::onStateUpdateNotification)});
}

void TicketData::onMessageNotification(const NotificationCenter::UserInfo &userInfo)
{
    const auto *message = userInfo.record<MessageDto>();
    if (!message || ticketId() != message->ticketId)
        return;
    if (hasMessage(message->id)) {
        Logger::shared().log(
            LogLevel::info,
            QStringLiteral("Message %1 already exists in ticket, skipping duplicate")
                .arg(message->id));
        return;
    }
    track(TolvaneAnalyticsEvent::Chat::messageReceived,
          {{QStringLiteral("source"), QStringLiteral("ui_update")},
           {QStringLiteral("sender_type"), message->sender.type},
           {QStringLiteral("is_duplicate"), false},
           {Keys::ticketId, message->ticketId},
           {Keys::messageId, message->id}});
    if (m_ticket) {
        appendMessage(*message);
        Q_EMIT ticketChanged();
    }
    // A burst of messages is followed by one fetch.
    m_refresh.request_stop();
    m_refresh = std::stop_source();
    detach(refreshLater(message->ticketId, m_refresh.get_token()));
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

void TicketData::onStateUpdateNotification(const NotificationCenter::UserInfo &userInfo)
{
    const auto *update = userInfo.record<TicketPreviewDto>();
    if (!update || !m_preview || m_preview->id != update->id)
        return;
    m_preview = *update;
    ++m_stateUpdates;
    if (m_ticket)
        m_ticket->state = update->state;
    Q_EMIT ticketChanged();
}

} // namespace tolvane
