// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "state/ticketsdata.h"
#include "ui/kit/recordlistmodel.h"

namespace tolvane {

/// The tickets of a store as rows. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT TicketListModel final : public RecordListModel<TicketPreviewDto>
{
    Q_OBJECT

public:
    enum Role {
        /// A TicketPreviewDto, for Destination.ticket().
        previewRole = Qt::UserRole + 1,
        /// An Avatar::Kind.
        iconRole,
        pictureRole,
        contentRole,
        captionRole,
        /// As received.
        timestampRole,
        isUnreadRole,
        /// The whole row as one text, for screen readers.
        descriptionRole,
        /// The same for all rows, which form one section.
        sectionRole,
    };

    using RecordListModel::RecordListModel;

    /// @param update from the list before; if it fits, the lists are not compared again
    void setTickets(const TicketsData::Tickets &tickets,
                    const ListUpdate<TicketPreviewDto> &update = {});

    /// Makes views read the ages of messages and the drafts again, which are not part of tickets.
    void updateTexts();

    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace tolvane
