// SPDX-License-Identifier: MIT
#include "httpserver.h"

#include "socketstream.h"
#include "text.h"

#include <chrono>
#include <cstdint>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>

namespace tolvane::backend {

namespace {

using namespace std::chrono_literals;

// A connection occupies a worker during its lifetime; a client that polls every second keeps its
// connection. New connections get a worker soon even when all are busy: see WorkerPool.
constexpr std::size_t workerCount = 128;
constexpr std::chrono::seconds idleTimeout = 10s;
constexpr std::chrono::seconds transferTimeout = 10s;
constexpr std::chrono::milliseconds shutdownTimeout = 700ms;
constexpr int backlog = 256;

// By default, httplib sets SO_REUSEPORT and so would share the port of another backend instead of
// failing.
void reuseAddressOnly(socket_t socket)
{
    const int yes = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
}

// Parses the headers again, because httplib percent-decodes them, which changes keys and customer
// ids.
httplib::Headers parseHeaders(std::string_view head)
{
    httplib::Headers headers;
    for (std::string_view line : split(head, '\n')) {
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const auto colon = line.find(':');
        if (colon != std::string_view::npos && colon > 0)
            headers.emplace(line.substr(0, colon), trimmed(line.substr(colon + 1)));
    }
    return headers;
}

void rename(httplib::Headers &headers, const char *from, const char *to)
{
    if (auto header = headers.extract(from); !header.empty()) {
        header.key() = to;
        headers.insert(std::move(header));
    }
    headers.erase(from);
}

} // namespace

// When all workers are occupied, each new connection makes an idle one close.
class HttpServer::WorkerPool : public httplib::ThreadPool
{
public:
    explicit WorkerPool(HttpServer &server)
        : ThreadPool(workerCount)
        , m_server(server)
    {
    }

    void enqueue(std::function<void()> connection) override
    {
        if (++m_server.m_connectionCount > workerCount)
            m_server.m_overload.release();
        ThreadPool::enqueue(std::move(connection));
    }

private:
    HttpServer &m_server;
};

HttpServer::HttpServer()
{
    set_tcp_nodelay(true);
    set_socket_options(reuseAddressOnly);
    // httplib only uses these for the Keep-Alive header.
    set_keep_alive_timeout(idleTimeout.count());
    set_keep_alive_max_count(1'000'000);
    new_task_queue = [this] {
        m_started.count_down();
        return new WorkerPool(*this);
    };
}

int HttpServer::bind(const std::string &host, int port)
{
    const int bound = port == 0 ? bind_to_any_port(host) : bind_to_port(host, port) ? port : -1;
    // With httplib's backlog of five, a burst of connections would wait for a second.
    if (bound > 0 && ::listen(svr_sock_, backlog) != 0)
        return -1;
    return bound;
}

bool HttpServer::run()
{
    return listen_after_bind();
}

void HttpServer::shutDown()
{
    // httplib ignores stop() until it runs.
    m_started.wait();
    m_stop.release();
    stop();
    std::unique_lock lock(m_mutex);
    m_connectionClosed.wait_for(lock, shutdownTimeout, [this] { return m_connections.empty(); });
    for (const socket_t connection : m_connections)
        ::shutdown(connection, SHUT_RDWR);
}

bool HttpServer::process_and_close_socket(socket_t socket)
{
    {
        const std::lock_guard lock(m_mutex);
        m_connections.insert(socket);
    }
    SocketStream stream(socket, transferTimeout);
    bool keepsAlive = true;
    while (keepsAlive && waitForRequest(stream)) {
        // A request with a malformed header, or a body of unknown length, may leave bytes in the
        // stream that do not begin a request: close the connection after it.
        bool closesAfter = true;
        bool closed = false;
        stream.recordHead();
        const bool isLast = isStopping();
        const bool answered =
            process_request(stream, isLast, closed, [&](httplib::Request &request) {
                closesAfter = isLast || request.has_header("Transfer-Encoding");
                prepareRequest(request, stream, stream.takeHead(), closesAfter);
            });
        keepsAlive = answered && !closed && !closesAfter;
    }
    const std::lock_guard lock(m_mutex);
    m_connections.erase(socket);
    --m_connectionCount;
    m_connectionClosed.notify_all();
    return true;
}

bool HttpServer::waitForRequest(SocketStream &stream) const
{
    if (stream.hasBuffered())
        return true;
    enum Source { socket, stop, overload };
    std::array<pollfd, 3> watched = {{
        {stream.socket(), POLLIN, 0},
        {m_stop.descriptor(), POLLIN, 0},
        {m_overload.descriptor(), POLLIN, 0},
    }};
    const auto timeout = static_cast<int>(std::chrono::milliseconds(idleTimeout).count());
    while (::poll(watched.data(), watched.size(), timeout) > 0) {
        // A request that has arrived is served even during shutdown.
        if (watched[socket].revents != 0)
            return true;
        if (watched[stop].revents != 0 || m_overload.tryAcquire())
            return false;
    }
    return false;
}

HttpServer::WaitResult HttpServer::waitForSemaphore(const PollableSemaphore &semaphore,
                                                    int connection,
                                                    std::chrono::milliseconds timeout) const
{
    enum Source { notification, client, stop };
    std::array<pollfd, 3> watched = {{
        {semaphore.descriptor(), POLLIN, 0},
        {connection, POLLRDHUP, 0},
        {m_stop.descriptor(), POLLIN, 0},
    }};
    if (::poll(watched.data(), watched.size(), static_cast<int>(timeout.count())) <= 0)
        return WaitResult::Timeout;
    if (watched[client].revents != 0 || watched[stop].revents != 0)
        return WaitResult::Closed;
    while (semaphore.tryAcquire()) {
        // Several notifications are handled at once.
    }
    return WaitResult::Released;
}

bool HttpServer::isStopping() const
{
    pollfd event{m_stop.descriptor(), POLLIN, 0};
    return ::poll(&event, 1, 0) > 0;
}

void HttpServer::prepareRequest(httplib::Request &request, const SocketStream &stream,
                                std::string head, bool isLast) const
{
    request.headers = parseHeaders(head);
    rename(request.headers, "Content-Type", bodyType);
    rename(request.headers, "Content-Encoding", bodyEncoding);
    request.headers.emplace(connectionId, std::to_string(stream.socket()));
    // Disables compression: on one machine it costs more than it saves, and httplib uses the
    // highest level.
    request.headers.erase("Accept-Encoding");
    if (isLast) {
        request.headers.erase("Connection");
        request.headers.emplace("Connection", "close");
    }
}

} // namespace tolvane::backend
