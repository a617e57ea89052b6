// SPDX-License-Identifier: MIT
#pragma once

#include "data/store.h"
#include "settings/settings.h"

#include <chrono>

namespace tolvane::backend {

/// Sends the scripted agents' replies when they are due. Replies that were pending when the backend
/// stopped are sent after the next start.
class ReplyScheduler
{
public:
    ReplyScheduler(Store &store, const LiveSettings &settings,
                   std::chrono::milliseconds replyDelay);

    /// The time at which the agents reply to a message of this moment.
    Instant dueTime() const;
    /// Sends the due reply, if any. Returns the time until the next call is needed.
    std::chrono::milliseconds sendDueReply();
    /// Makes the next call look for due replies. Call it when a change may allow agents to reply.
    void wake() { m_nextLook = 0; }

private:
    Instant nextDueTime();
    ReplyOutcome outcomeOf(const PendingReply &reply) const;

    Store &m_store;
    const LiveSettings &m_settings;
    const std::chrono::milliseconds m_replyDelay;
    Instant m_nextLook = 0;
};

} // namespace tolvane::backend
