// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <httplib.h>
#include <latch>
#include <mutex>
#include <set>
#include <string>

namespace tolvane::backend {

class SocketStream;

/// Where a request's own Content-Type and Content-Encoding stand for the handlers; no client can
/// send headers of these names.
inline constexpr const char *bodyType = ":body-type";
inline constexpr const char *bodyEncoding = ":body-encoding";
/// Likewise, for awaitEvent().
inline constexpr const char *connectionId = ":connection";

/// httplib's server with its own care for connections: headers come as they were sent, bodies come
/// raw, answers are not compressed, an idle connection costs no wake-ups, and none of them holds up
/// the end.
class HttpServer : public httplib::Server
{
public:
    HttpServer();

    /// The port, or -1 when the address cannot be had. Port 0 picks a free one.
    int bind(const std::string &host, int port);
    /// Serves until shut down. False when it ended for another reason.
    bool run();
    /// From another thread than run()'s. Requests in flight are given a moment to finish.
    void shutDown();

    enum class Awaited { News, Timeout, End };
    /// For an answer that goes on: waits for the event, and takes all of it. The end is there when
    /// the client has gone or the server shuts down.
    Awaited awaitEvent(const Event &event, int connection, std::chrono::milliseconds timeout) const;

private:
    bool process_and_close_socket(socket_t socket) override;
    class Workers;

    /// Whether a request begins before the connection has been idle for too long, or has to make
    /// room for another.
    bool awaitRequest(SocketStream &stream) const;
    bool isStopping() const;
    void prepare(httplib::Request &request, const SocketStream &stream, std::string head,
                 bool isLast) const;

    Event m_stop;
    Event m_crowd;
    std::atomic<std::size_t> m_accepted = 0;
    std::latch m_running{1};
    std::mutex m_mutex;
    std::condition_variable m_connectionClosed;
    std::set<socket_t> m_connections;
};

} // namespace tolvane::backend
