// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"

#include <QCoroTask>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QSet>

#include <memory>
#include <vector>

namespace tolvane {

/// Whether this is another sender's message that the customer has not read.
TOLVANE_PRIVATE_EXPORT bool isUnread(const MessageDto &message);

/// Counts the tickets whose last message is unread, according to the lists and broadcasts that
/// arrive. Loads a list only if refresh() is called. Main thread.
class TOLVANE_PRIVATE_EXPORT UnreadTickets final
    : public QObject,
      public std::enable_shared_from_this<UnreadTickets>
{
    Q_OBJECT

public:
    static const std::shared_ptr<UnreadTickets> &shared();

    UnreadTickets();

    int count() const { return int(m_ids.size()); }

    /// Loads the list once. A failure is logged and keeps the count. Calls during a running refresh
    /// have no effect.
    QCoro::Task<> refresh();

    using Ids = QSet<QString>;
    /// The unread tickets of a list. Safe from any thread.
    static Ids unreadIn(const QList<TicketPreviewDto> &tickets);
    /// A list has arrived. What becomes known until endList() is newer than the list.
    void beginList() { m_newer.clear(); }
    /// Replaces all known tickets.
    void endList(Ids unread);
    /// The customer has seen all messages of the ticket.
    void markRead(const QString &ticketId);

Q_SIGNALS:
    void countChanged(int count);

private:
    void setLastMessage(const QString &ticketId, const MessageDto &message);
    void setUnread(const QString &ticketId, bool isUnread);
    void apply(const QString &ticketId, bool isUnread);
    void notifyIfOther(int countBefore);

    Ids m_ids;
    /// What has become known since the last list arrived.
    QHash<QString, bool> m_newer;
    bool m_isRefreshing = false;
    std::vector<NotificationCenter::Observation> m_observations;
};

} // namespace tolvane
