// SPDX-License-Identifier: MIT
#pragma once

#include "http/wakeup.h"

#include <mutex>
#include <set>
#include <string>

namespace tolvane::backend {

class ChangeStream;

/// Notifies the open agent pages of changed tickets. Thread-safe.
class ChangeNotifier
{
public:
    void notify(const std::string &ticketId);

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
    /// Throws an HttpError when too many streams are open.
    explicit ChangeStream(ChangeNotifier &notifier);
    ChangeStream(const ChangeStream &) = delete;
    ChangeStream &operator=(const ChangeStream &) = delete;
    ~ChangeStream();

    const Wakeup &wakeup() const { return m_wakeup; }
    std::set<std::string> take();

private:
    friend ChangeNotifier;

    ChangeNotifier &m_notifier;
    std::set<std::string> m_ticketIds;
    Wakeup m_wakeup;
};

} // namespace tolvane::backend
