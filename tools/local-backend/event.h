// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::backend {

/// A counter with a file descriptor (eventfd) that polls as readable while the count is not zero.
/// Thread-safe.
class Event
{
public:
    Event();
    Event(const Event &) = delete;
    Event &operator=(const Event &) = delete;
    ~Event();

    int descriptor() const { return m_descriptor; }
    void add() const;
    /// Decrements the count, atomically. Returns false when it was zero.
    bool take() const;

private:
    int m_descriptor;
};

} // namespace tolvane::backend
