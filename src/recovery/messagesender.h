// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "recovery/sentmessage.h"

#include <tolvane/error.h>

#include <QCoroTask>
#include <QtCore/QStringList>

#include <memory>
#include <optional>

namespace tolvane {

class TicketData;

/// Sends the draft of a conversation, so that nothing is lost and nothing is sent twice. A message
/// for a known ticket never begins another one, and a message whose response is lost is looked for
/// at the backend. Main thread.
class TOLVANE_PRIVATE_EXPORT MessageSender final
    : public std::enable_shared_from_this<MessageSender>
{
public:
    explicit MessageSender(std::shared_ptr<TicketData> store);

    /// The tickets that exist before a new conversation. They distinguish the ticket of a lost
    /// response from an older one. If they are not set, the first message fetches them.
    void setKnownTicketIds(const QStringList &ids) { m_knownTicketIds = ids; }

    /// Sends the draft. The result is the failure to show; null if the backend has the message.
    QCoro::Task<ErrorPtr> send();

private:
    QCoro::Task<ErrorPtr> fetchKnownTicketIds();
    QCoro::Task<ErrorPtr> sendOnce();
    QCoro::Task<bool> confirm();

    const std::shared_ptr<TicketData> m_store;
    std::optional<QStringList> m_knownTicketIds;
    /// The last message whose response was lost.
    std::optional<SentMessage> m_unconfirmed;
};

} // namespace tolvane
