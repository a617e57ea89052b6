// SPDX-License-Identifier: MIT
#pragma once

#include <string>

struct MHD_Connection;

namespace tolvane::backend {

/// The server-sent events of one connection, until the client disconnects or the server shuts down.
class EventStream
{
public:
    EventStream() = default;
    EventStream(const EventStream &) = delete;
    EventStream &operator=(const EventStream &) = delete;
    virtual ~EventStream() = default;

    /// The next events, or an empty text while none is waiting. A call means that the connection
    /// has accepted the events of the previous call.
    virtual std::string next() = 0;

    /// Makes the server call next().
    void wake();
    /// Suspends the connection until wake(). Returns false when wake() has been called since the
    /// last call.
    bool suspend(MHD_Connection *connection);

private:
    MHD_Connection *m_suspended = nullptr;
    bool m_isAwake = false;
};

} // namespace tolvane::backend
