// SPDX-License-Identifier: MIT
#include "recovery/drafts.h"

#include "base/sharedinstance.h"
#include "state/ticketdata.h"

namespace tolvane {

namespace {

QString draftId(const TicketData &store)
{
    return store.newTicket() ? QString() : store.ticketId().value_or(QString());
}

} // namespace

const std::shared_ptr<Drafts> &Drafts::shared()
{
    return sharedInstance<Drafts>();
}

void Drafts::follow(TicketData &store)
{
    const auto id = std::make_shared<QString>(draftId(store));
    const Draft draft = m_drafts.value(*id);
    store.setMessage(draft.message);
    store.setAttachments(draft.attachments);
    for (const auto signal :
         {&TicketData::messageChanged, &TicketData::attachmentsChanged, &TicketData::busyChanged})
        connect(&store, signal, this, [this, &store, id] { save(store, *id); });
}

/// @param id the id under which the draft was saved before: creating a ticket changes it
void Drafts::save(const TicketData &store, QString &id)
{
    const QString newId = draftId(store);
    const bool isMoved = newId != id && m_drafts.remove(id) > 0;
    id = newId;
    const bool isEmpty = store.message().isEmpty() && store.attachments().isEmpty();
    const bool wasKept = m_drafts.contains(id);
    const bool isKept = !isEmpty && !store.isSendingMessage();
    if (isKept)
        m_drafts.insert(id, {store.message(), store.attachments()});
    else
        m_drafts.remove(id);
    if (isMoved || isKept != wasKept)
        Q_EMIT changed();
}

} // namespace tolvane
