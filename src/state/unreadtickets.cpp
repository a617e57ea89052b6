// SPDX-License-Identifier: MIT
#include "state/unreadtickets.h"

#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "base/sharedinstance.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/notifications.h"

#include <utility>

namespace tolvane {

bool isUnread(const MessageDto &message)
{
    return !message.isRead && message.sender.type != words::customer;
}

const std::shared_ptr<UnreadTickets> &UnreadTickets::shared()
{
    return sharedInstance<UnreadTickets>();
}

UnreadTickets::UnreadTickets()
{
    // The observations are destroyed with this store, so the callbacks cannot outlive it.
    const auto observe = [this](const QString &name, NotificationCenter::Callback callback) {
        m_observations.push_back(platform().notificationCenter->observe(
            name, NotificationCenter::Delivery::mainThread, std::move(callback)));
    };
    observe(notifications::didReceiveMessage, [this](const NotificationCenter::UserInfo &userInfo) {
        if (const auto *message = userInfo.record<MessageDto>())
            setLastMessage(message->ticketId, *message);
    });
    observe(notifications::didReceiveStateUpdate,
            [this](const NotificationCenter::UserInfo &userInfo) {
                if (const auto *preview = userInfo.record<TicketPreviewDto>())
                    setLastMessage(preview->id, preview->lastMessage);
            });
}

QCoro::Task<> UnreadTickets::refresh()
{
    const auto self = shared_from_this();
    if (std::exchange(m_isRefreshing, true))
        co_return;
    try {
        const APIClient client = APIClient::live();
        setTickets(co_await client.getTickets());
    } catch (...) {
        logFailure(QStringLiteral("Error fetching the unread count: "), *currentError());
    }
    m_isRefreshing = false;
}

void UnreadTickets::setTickets(const QList<TicketPreviewDto> &tickets)
{
    Ids ids;
    for (const TicketPreviewDto &ticket : tickets) {
        if (isUnread(ticket.lastMessage))
            ids.insert(ticket.id);
    }
    setIds(ids);
}

void UnreadTickets::markRead(const QString &ticketId)
{
    Ids ids = m_ids;
    ids.remove(ticketId);
    setIds(ids);
}

void UnreadTickets::setLastMessage(const QString &ticketId, const MessageDto &message)
{
    if (!isUnread(message)) {
        markRead(ticketId);
        return;
    }
    Ids ids = m_ids;
    ids.insert(ticketId);
    setIds(ids);
}

void UnreadTickets::setIds(const Ids &ids)
{
    const int before = count();
    m_ids = ids;
    if (count() != before)
        Q_EMIT countChanged(count());
}

} // namespace tolvane
