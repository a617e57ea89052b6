// SPDX-License-Identifier: MIT
#pragma once

#include "livesettings.h"
#include "store.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace tolvane::backend {

/// Takes in what customers write and has their agents reply in time. Replies that were owed when
/// the backend ended are given once it runs again.
class Desk
{
public:
    Desk(Store &store, const LiveSettings &settings, std::chrono::milliseconds replyDelay);

    Ticket open(const std::string &customer, const NewTicket &ticket);
    /// Absent when the customer has no such ticket.
    std::optional<Message> post(const std::string &customer, const std::string &ticketId,
                                const NewMessage &message);

    /// To be told when its agents may answer where they did not before.
    void wake();

private:
    void work(const std::stop_token &stop);
    /// Gives the reply that is due, if any; says how long to wait before the next.
    std::chrono::milliseconds serve();
    Settlement settlementOf(const PendingReply &reply) const;
    Instant dueTime() const;

    Store &m_store;
    const LiveSettings &m_settings;
    const std::chrono::milliseconds m_replyDelay;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    bool m_hasChanged = false;
    /// The last member: it stops before the others go.
    std::jthread m_worker;
};

} // namespace tolvane::backend
