// SPDX-License-Identifier: MIT
#pragma once

#include "state/ticketsdata.h"

#include <QtCore/QAbstractListModel>

#include <memory>

namespace tolvane {

/// The tickets of a store as rows. A list that takes the place of another becomes the fewest
/// insertions, removals, moves and changes, told apart by the tickets' ids, so that a view keeps
/// its place and rebuilds only what is different. Main thread.
class TicketListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        /// A TicketPreviewDto, to navigate with.
        previewRole = Qt::UserRole + 1,
        /// "closed", "ai", "picture" or "person"
        iconRole,
        pictureRole,
        contentRole,
        captionRole,
        isUnreadRole,
        /// All of the row in one sentence, for screen readers.
        descriptionRole,
        /// The same for all: they are one section.
        sectionRole,
    };

    explicit TicketListModel(QObject *parent = nullptr);

    void setTickets(const TicketsData::Tickets &tickets);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    void removeMissing(const TicketsData::Tickets &tickets);
    qsizetype indexOf(const QString &id, qsizetype from) const;

    TicketsData::Tickets m_tickets;
};

} // namespace tolvane
