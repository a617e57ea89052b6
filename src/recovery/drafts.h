// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

#include <memory>

namespace tolvane {

class TicketData;

/// The unsent messages of all conversations, for as long as the process lives. Main thread.
class TOLVANE_PRIVATE_EXPORT Drafts final : public QObject
{
    Q_OBJECT

public:
    static const std::shared_ptr<Drafts> &shared();

    /// Whether there is a draft for the ticket.
    bool contains(const QString &ticketId) const { return m_drafts.contains(ticketId); }

    /// Gives the store its draft, and keeps the draft up to date for as long as the store exists.
    /// A draft that is being sent is kept only if sending fails.
    void follow(TicketData &store);

Q_SIGNALS:
    void changed();

private:
    struct Draft
    {
        QString message;
        QList<AttachmentDto> attachments;
    };

    void save(const TicketData &store, QString &id);

    /// By the ticket's id; empty for the new conversation.
    QHash<QString, Draft> m_drafts;
};

} // namespace tolvane
