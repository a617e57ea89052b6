// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>

struct MHD_Connection;

namespace tolvane::backend {

/// Resumes the connection of an event stream from any thread.
class Wakeup
{
public:
    void release() const;
    /// Suspends the connection until release(). Returns false when release() has been called since
    /// the last call.
    bool suspend(MHD_Connection *connection) const;

private:
    mutable std::mutex m_mutex;
    mutable MHD_Connection *m_suspended = nullptr;
    mutable bool m_isReleased = false;
};

} // namespace tolvane::backend
