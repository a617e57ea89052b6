// SPDX-License-Identifier: MIT
#include "state/unreadtickets.h"

#include "analytics/reporting.h"
#include "backend/apiclient.h"
#include "base/sharedinstance.h"
#include "platform/async/awaitfuture.h"
#include "platform/destroyonworker.h"
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
        QList<TicketPreviewDto> tickets = co_await client.getTickets();
        beginList();
        QFuture<Ids> read =
            platform().workers->run([tickets = std::move(tickets)] { return unreadIn(tickets); });
        endList(co_await awaitFuture(read));
    } catch (...) {
        logFailure(QStringLiteral("Error fetching the unread count: "), *currentError());
    }
    m_isRefreshing = false;
}

UnreadTickets::Ids UnreadTickets::unreadIn(const QList<TicketPreviewDto> &tickets)
{
    Ids ids;
    for (const TicketPreviewDto &ticket : tickets) {
        if (isUnread(ticket.lastMessage))
            ids.insert(ticket.id);
    }
    return ids;
}

void UnreadTickets::endList(Ids unread)
{
    const int before = count();
    Ids replaced = std::exchange(m_ids, std::move(unread));
    for (auto each = m_newer.cbegin(); each != m_newer.cend(); ++each)
        apply(each.key(), each.value());
    if (replaced.size() > smallList)
        destroyOnWorker(std::move(replaced));
    notifyIfOther(before);
}

void UnreadTickets::markRead(const QString &ticketId)
{
    setUnread(ticketId, false);
}

void UnreadTickets::setLastMessage(const QString &ticketId, const MessageDto &message)
{
    setUnread(ticketId, isUnread(message));
}

void UnreadTickets::setUnread(const QString &ticketId, bool isUnread)
{
    const int before = count();
    m_newer.insert(ticketId, isUnread);
    apply(ticketId, isUnread);
    notifyIfOther(before);
}

void UnreadTickets::apply(const QString &ticketId, bool isUnread)
{
    if (isUnread)
        m_ids.insert(ticketId);
    else
        m_ids.remove(ticketId);
}

void UnreadTickets::notifyIfOther(int countBefore)
{
    if (count() != countBefore)
        Q_EMIT countChanged(count());
}

} // namespace tolvane
