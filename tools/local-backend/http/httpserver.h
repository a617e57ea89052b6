// SPDX-License-Identifier: MIT
#pragma once

#include "http/httpmessage.h"

#include <condition_variable>
#include <set>

struct MHD_Daemon;

namespace tolvane::backend {

/// Serves HTTP on one thread.
class HttpServer
{
public:
    /// Must not throw.
    using Handler = std::function<void(const Request &, Response &)>;

    HttpServer(std::size_t maxBody, Handler handler);
    HttpServer(const HttpServer &) = delete;
    HttpServer &operator=(const HttpServer &) = delete;
    ~HttpServer();

    /// Returns the port, or -1 when binding fails. Port 0 picks a free port. Requests wait for
    /// run().
    int bind(const std::string &host, int port);
    /// Serves until shutDown(). Returns false when the server cannot start.
    bool run();
    /// Must be called on another thread than run(), which then waits up to 700 ms for requests in
    /// flight.
    void shutDown();

private:
    class Callbacks;
    struct Exchange;
    struct Stream;

    void serve();
    void wakeStreams(bool isHeartbeat);

    const std::size_t m_maxBody;
    const Handler m_handler;
    int m_socket = -1;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isStopping = false;
    std::size_t m_exchangeCount = 0;
    std::set<Stream *> m_streams;
};

} // namespace tolvane::backend
