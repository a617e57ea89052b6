// SPDX-License-Identifier: MIT
#pragma once

#include "pollablesemaphore.h"

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

/// The headers in which handlers find the request's Content-Type and Content-Encoding. No client
/// can send headers with these names.
inline constexpr const char *bodyType = ":body-type";
inline constexpr const char *bodyEncoding = ":body-encoding";
/// Likewise for the connection that waitForSemaphore() takes.
inline constexpr const char *connectionId = ":connection";

/// httplib's server with its own handling of connections: headers and bodies arrive unmodified,
/// responses are not compressed, idle connections cause no wake-ups and do not delay the shutdown.
class HttpServer : public httplib::Server
{
public:
    HttpServer();

    /// Returns the port, or -1 when binding fails. Port 0 picks a free port.
    int bind(const std::string &host, int port);
    /// Serves until shutDown(). Returns false when it ends for another reason.
    bool run();
    /// Must be called on another thread than run(). Waits up to 700 ms for requests in flight.
    void shutDown();

    enum class WaitResult { Released, Timeout, Closed };
    /// For streaming responses: waits for the semaphore and sets it to zero. Returns Closed
    /// when the client disconnects or the server shuts down.
    WaitResult waitForSemaphore(const PollableSemaphore &semaphore, int connection,
                                std::chrono::milliseconds timeout) const;

private:
    bool process_and_close_socket(socket_t socket) override;
    class WorkerPool;

    /// Waits for the next request. Returns false when the connection has been idle too long or has
    /// to yield its worker to another connection.
    bool waitForRequest(SocketStream &stream) const;
    bool isStopping() const;
    void prepareRequest(httplib::Request &request, const SocketStream &stream, std::string head,
                        bool isLast) const;

    PollableSemaphore m_stop;
    PollableSemaphore m_overload;
    std::atomic<std::size_t> m_connectionCount = 0;
    std::latch m_started{1};
    std::mutex m_mutex;
    std::condition_variable m_connectionClosed;
    std::set<socket_t> m_connections;
};

} // namespace tolvane::backend
