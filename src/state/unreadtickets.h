// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"

#include <QCoroTask>
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

    /// A list has arrived; it replaces all known tickets.
    void setTickets(const QList<TicketPreviewDto> &tickets);
    /// The customer has seen all messages of the ticket.
    void markRead(const QString &ticketId);

Q_SIGNALS:
    void countChanged(int count);

private:
    using Ids = QSet<QString>;

    void setLastMessage(const QString &ticketId, const MessageDto &message);
    void setIds(const Ids &ids);

    Ids m_ids;
    bool m_isRefreshing = false;
    std::vector<NotificationCenter::Observation> m_observations;
};

} // namespace tolvane
