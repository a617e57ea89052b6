// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::backend {

/// Counts what it is told, and wakes whoever polls its descriptor while it has any left.
class Event
{
public:
    Event();
    Event(const Event &) = delete;
    Event &operator=(const Event &) = delete;
    ~Event();

    int descriptor() const { return m_descriptor; }
    void add() const;
    /// Whether there was one to take; never two takers for the same one.
    bool take() const;

private:
    int m_descriptor;
};

} // namespace tolvane::backend
