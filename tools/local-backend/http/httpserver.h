// SPDX-License-Identifier: MIT
#pragma once

#include "http/httpmessage.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <set>

struct MHD_Daemon;

namespace tolvane::backend {

/// Serves HTTP on the thread that calls run().
class HttpServer
{
public:
    /// Must not throw.
    using Handler = std::function<void(const Request &, Response &)>;
    /// Work between requests. Returns the time until it has to be called again.
    using Work = std::function<std::chrono::milliseconds()>;

    HttpServer(std::size_t maxBody, Handler handler);
    HttpServer(const HttpServer &) = delete;
    HttpServer &operator=(const HttpServer &) = delete;
    ~HttpServer();

    /// Returns the port, or -1 when binding fails. Port 0 picks a free port. Requests wait for
    /// run().
    int bind(const std::string &host, int port);
    /// Serves until shutDown(), and then up to 700 ms longer for requests in flight.
    void run(const Work &work);
    /// May be called on any thread, and by the handler of a signal.
    void shutDown() { m_isStopping = true; }

private:
    class Callbacks;
    struct Exchange;
    struct Stream;

    void wakeStreams(bool isHeartbeat);

    const std::size_t m_maxBody;
    const Handler m_handler;
    MHD_Daemon *m_daemon = nullptr;
    std::atomic<bool> m_isStopping = false;
    static_assert(std::atomic<bool>::is_always_lock_free);
    std::size_t m_exchangeCount = 0;
    std::set<Stream *> m_streams;
};

} // namespace tolvane::backend
