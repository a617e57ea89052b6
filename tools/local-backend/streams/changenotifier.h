// SPDX-License-Identifier: MIT
#pragma once

#include "http/eventstream.h"

#include <functional>
#include <set>

namespace tolvane::backend {

class ChangeStream;

/// Notifies the open agent pages of changed tickets.
class ChangeNotifier
{
public:
    void notify(const std::string &ticketId);

private:
    friend ChangeStream;

    std::set<ChangeStream *> m_streams;
};

/// The tickets that change during its lifetime. A ticket that changes several times before next()
/// is reported once.
class ChangeStream final : public EventStream
{
public:
    /// Returns the event for a changed ticket.
    using EventOf = std::function<std::string(const std::string &ticketId)>;

    /// Throws an HttpError when too many streams are open.
    ChangeStream(ChangeNotifier &notifier, EventOf eventOf);
    ~ChangeStream() override;

    std::string next() override;

private:
    friend ChangeNotifier;

    ChangeNotifier &m_notifier;
    const EventOf m_eventOf;
    std::set<std::string> m_ticketIds;
};

} // namespace tolvane::backend
