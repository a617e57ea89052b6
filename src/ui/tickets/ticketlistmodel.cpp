// SPDX-License-Identifier: MIT
#include "ui/tickets/ticketlistmodel.h"

#include "state/unreadtickets.h"
#include "ui/tickets/ticketrow.h"

#include <QtCore/QUrl>

namespace tolvane {

void TicketListModel::setTickets(const TicketsData::Tickets &tickets,
                                 const ListUpdate<TicketPreviewDto> &update)
{
    if (update.before.isSharedWith(records()) && update.after.isSharedWith(tickets))
        apply(tickets, update.steps);
    else
        replace(tickets);
}

QVariant TicketListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const TicketPreviewDto &ticket = record(index.row());
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
        return ticketrow::caption(ticket);
    case timestampRole:
        return ticket.lastMessage.timestamp;
    case isUnreadRole:
        return isUnread(ticket.lastMessage);
    case descriptionRole:
        return ticketrow::description(ticket);
    case sectionRole:
        return QStringLiteral("tickets");
    default:
        return {};
    }
}

void TicketListModel::updateTexts()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {captionRole, descriptionRole});
}

QHash<int, QByteArray> TicketListModel::roleNames() const
{
    return {{previewRole, "preview"},   {iconRole, "icon"},
            {pictureRole, "picture"},   {contentRole, "content"},
            {captionRole, "caption"},   {timestampRole, "timestamp"},
            {isUnreadRole, "isUnread"}, {descriptionRole, "description"},
            {sectionRole, "section"}};
}

} // namespace tolvane
