// SPDX-License-Identifier: MIT
#include "ui/home/ticketlistmodel.h"

#include "ui/home/ticketrow.h"

#include <QtCore/QHash>
#include <QtCore/QUrl>

namespace tolvane {

TicketListModel::TicketListModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

void TicketListModel::setTickets(const TicketsData::Tickets &tickets)
{
    removeMissing(tickets);
    // A backend that lists a ticket twice gets two rows for it.
    QHash<QString, int> kept;
    for (const TicketPreviewDto &ticket : std::as_const(m_tickets))
        ++kept[ticket.id];
    for (qsizetype row = 0; row < tickets.size(); ++row) {
        const TicketPreviewDto &ticket = tickets[row];
        const qsizetype old = kept[ticket.id]-- > 0 ? indexOf(ticket.id, row) : -1;
        if (old < 0) {
            beginInsertRows({}, int(row), int(row));
            m_tickets.insert(row, ticket);
            endInsertRows();
            continue;
        }
        if (old != row) {
            beginMoveRows({}, int(old), int(old), {}, int(row));
            m_tickets.move(old, row);
            endMoveRows();
        }
        if (m_tickets[row] != ticket) {
            m_tickets[row] = ticket;
            Q_EMIT dataChanged(index(int(row)), index(int(row)));
        }
    }
}

void TicketListModel::removeMissing(const TicketsData::Tickets &tickets)
{
    QHash<QString, int> wanted;
    for (const TicketPreviewDto &ticket : tickets)
        ++wanted[ticket.id];
    for (qsizetype row = 0; row < m_tickets.size();) {
        if (wanted[m_tickets[row].id]-- > 0) {
            ++row;
            continue;
        }
        beginRemoveRows({}, int(row), int(row));
        m_tickets.removeAt(row);
        endRemoveRows();
    }
}

qsizetype TicketListModel::indexOf(const QString &id, qsizetype from) const
{
    for (qsizetype row = from; row < m_tickets.size(); ++row) {
        if (m_tickets[row].id == id)
            return row;
    }
    return -1;
}

int TicketListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_tickets.size());
}

QVariant TicketListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const TicketPreviewDto &ticket = m_tickets[index.row()];
    switch (role) {
    case previewRole:
        return QVariant::fromValue(ticket);
    case iconRole:
        return ticketrow::icon(ticket);
    case pictureRole:
        return QUrl(ticket.lastMessage.sender.profilePicture.value_or(QString()));
    case contentRole:
        return ticketrow::singleLine(ticket.lastMessage.content);
    case captionRole:
        return ticketrow::caption(ticket.lastMessage);
    case isUnreadRole:
        return ticketrow::isUnread(ticket.lastMessage);
    case descriptionRole:
        return ticketrow::description(ticket);
    case sectionRole:
        return QStringLiteral("tickets");
    default:
        return {};
    }
}

QHash<int, QByteArray> TicketListModel::roleNames() const
{
    return {{previewRole, "preview"},         {iconRole, "icon"},       {pictureRole, "picture"},
            {contentRole, "content"},         {captionRole, "caption"}, {isUnreadRole, "isUnread"},
            {descriptionRole, "description"}, {sectionRole, "section"}};
}

} // namespace tolvane
