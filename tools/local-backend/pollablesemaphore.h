// SPDX-License-Identifier: MIT
#pragma once

namespace tolvane::backend {

/// A counter with a file descriptor (eventfd) that polls as readable while the count is not zero.
/// Thread-safe.
class PollableSemaphore
{
public:
    PollableSemaphore();
    PollableSemaphore(const PollableSemaphore &) = delete;
    PollableSemaphore &operator=(const PollableSemaphore &) = delete;
    ~PollableSemaphore();

    int descriptor() const { return m_descriptor; }
    void release() const;
    /// Decrements the count. Returns false when it was zero.
    bool tryAcquire() const;

private:
    int m_descriptor;
};

} // namespace tolvane::backend
