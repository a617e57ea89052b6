// SPDX-License-Identifier: MIT
#include "state/ticketdata.h"

#include "analytics/manager.h"
#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "base/errors.h"
#include "platform/async/awaitfuture.h"
#include "platform/destroyonworker.h"
#include "platform/logger.h"
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

void track(const QString &name, const QVariantMap &properties)
{
    TolvaneAnalyticsManager::shared().track(name, properties);
}

} // namespace

DerivedMessages::~DerivedMessages() = default;

TicketData::TicketData(std::optional<TicketPreviewDto> preview)
    : m_preview(std::move(preview))
{
}

TicketData::~TicketData()
{
    if (m_ticket && m_ticket->messages.size() > smallList)
        destroyOnWorker(*std::move(m_ticket));
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
