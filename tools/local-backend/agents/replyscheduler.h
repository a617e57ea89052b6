// SPDX-License-Identifier: MIT
#pragma once

#include "data/store.h"
#include "settings/settings.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace tolvane::backend {

/// Stores customers' messages and sends the scripted agents' replies when they are due. Replies
/// that were pending when the backend stopped are sent after the next start.
class ReplyScheduler
{
public:
    ReplyScheduler(Store &store, const LiveSettings &settings,
                   std::chrono::milliseconds replyDelay);

    Ticket createTicket(const std::string &customer, const NewTicket &ticket);
    /// Returns nullopt when the customer has no such ticket.
    std::optional<Message> addMessage(const std::string &customer, const std::string &ticketId,
                                      const NewMessage &message);

    /// Looks for due replies again. Call it when a change may allow agents to reply.
    void wake();

private:
    void run(const std::stop_token &stop);
    /// Sends the due reply, if any. Returns the time to wait for the next one.
    std::chrono::milliseconds sendDueReply();
    ReplyOutcome outcomeOf(const PendingReply &reply) const;
    Instant dueTime() const;

    Store &m_store;
    const LiveSettings &m_settings;
    const std::chrono::milliseconds m_replyDelay;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    bool m_hasChanged = false;
    /// The last member, so that the thread stops before the other members are destroyed.
    std::jthread m_thread;
};

} // namespace tolvane::backend
