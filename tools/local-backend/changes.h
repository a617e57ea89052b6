// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"

#include <mutex>
#include <set>
#include <string>

namespace tolvane::backend {

class ChangeStream;

/// Notifies the open agent pages of changed tickets. Thread-safe.
class Changes
{
public:
    void add(const std::string &ticketId);

private:
    friend ChangeStream;

    std::mutex m_mutex;
    std::set<ChangeStream *> m_streams;
};

/// Collects the tickets that change during its lifetime. A ticket that changes several times before
/// take() is returned once.
class ChangeStream
{
public:
    /// Throws a Refusal when too many streams are open.
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
