// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"

#include <mutex>
#include <set>
#include <string>

namespace tolvane::backend {

class ChangeStream;

/// Passes on which tickets have changed, to agents who look on. Safe for threads.
class Changes
{
public:
    void add(const std::string &ticketId);

private:
    friend ChangeStream;

    std::mutex m_mutex;
    std::set<ChangeStream *> m_streams;
};

/// What has changed while this one is there. A ticket that changes again before it is taken counts
/// once.
class ChangeStream
{
public:
    /// Throws a Refusal when too many look on already.
    explicit ChangeStream(Changes &changes);
    ChangeStream(const ChangeStream &) = delete;
    ChangeStream &operator=(const ChangeStream &) = delete;
    ~ChangeStream();

    const Event &news() const { return m_news; }
    std::set<std::string> take();

private:
    friend Changes;

    Changes &m_changes;
    std::set<std::string> m_ticketIds;
    Event m_news;
};

} // namespace tolvane::backend
