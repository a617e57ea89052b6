// SPDX-License-Identifier: MIT
#include "http/httpserver.h"

#include "http/listeningsocket.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstring>
#include <microhttpd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tolvane::backend {

namespace {

using namespace std::chrono_literals;

constexpr unsigned connectionTimeout = 10; // seconds without a byte
constexpr unsigned maxConnections = 1000;
constexpr std::size_t maxHeadSize = 65'536;
constexpr std::size_t streamBlock = 16'384;
constexpr std::chrono::milliseconds clientCheckInterval = 250ms;
// The interval of the comments that a stream without events sends.
constexpr std::chrono::seconds heartbeatInterval = 15s;
constexpr std::chrono::milliseconds shutdownTimeout = 700ms;

int socketOf(MHD_Connection *connection)
{
    return MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD)->connect_fd;
}

MHD_Result addHeader(void *request, MHD_ValueKind, const char *name, const char *value)
{
    static_cast<Request *>(request)->headers.emplace(name, value ? value : "");
    return MHD_YES;
}

} // namespace

struct HttpServer::Exchange
{
    Request request;
    bool hasHeaders = false;
};

/// The rest of a response without an end.
struct HttpServer::Stream
{
    HttpServer &server;
    MHD_Connection *connection;
    const int socket;
    const std::function<std::string()> nextEvents;
    const std::shared_ptr<const Wakeup> wakeup;
    /// At first, because the headers are sent together with the first bytes.
    std::atomic<bool> isHeartbeatDue = true;
    std::string pending = {};

    bool isOver()
    {
        const std::lock_guard lock(server.m_mutex);
        return server.m_isStopping || isClosedByClient(socket);
    }

    ssize_t read(char *to, std::size_t size)
    {
        while (pending.empty()) {
            if (isOver())
                return MHD_CONTENT_READER_END_OF_STREAM;
            pending = nextEvents();
            if (pending.empty() && isHeartbeatDue.exchange(false))
                pending = ":\n\n";
            if (pending.empty() && wakeup->suspend(connection))
                return 0;
        }
        const std::size_t count = std::min(size, pending.size());
        std::memcpy(to, pending.data(), count);
        pending.erase(0, count);
        return static_cast<ssize_t>(count);
    }
};

/// The functions that the HTTP library calls.
class HttpServer::Callbacks
{
public:
    static void *begin(void *, const char *target, MHD_Connection *)
    {
        auto *const exchange = new Exchange;
        exchange->request.target = target;
        return exchange;
    }

    static MHD_Result handle(void *context, MHD_Connection *connection, const char *,
                             const char *method, const char *, const char *data, std::size_t *size,
                             void **state)
    {
        auto &server = *static_cast<HttpServer *>(context);
        auto &exchange = *static_cast<Exchange *>(*state);
        Request &request = exchange.request;
        if (!exchange.hasHeaders) {
            exchange.hasHeaders = true;
            request.method = method;
            request.remoteAddress = remoteAddressOf(socketOf(connection));
            MHD_get_connection_values(connection, MHD_HEADER_KIND, addHeader, &request);
            const std::lock_guard lock(server.m_mutex);
            ++server.m_exchangeCount;
            return MHD_YES;
        }
        // The rest of a body that is too large is read and dropped: clients read the response only
        // after they have sent the whole body.
        if (*size > 0) {
            request.isTooLarge |= request.body.size() + *size > server.m_maxBody;
            if (request.isTooLarge)
                request.body.clear();
            else
                request.body.append(data, *size);
            *size = 0;
            return MHD_YES;
        }
        Response response;
        server.m_handler(request, response);
        return send(server, connection, std::move(response));
    }

    static void end(void *context, MHD_Connection *, void **state, MHD_RequestTerminationCode)
    {
        auto &server = *static_cast<HttpServer *>(context);
        const std::unique_ptr<Exchange> exchange(static_cast<Exchange *>(*state));
        if (!exchange || !exchange->hasHeaders)
            return;
        const std::lock_guard lock(server.m_mutex);
        --server.m_exchangeCount;
        server.m_changed.notify_all();
    }

    // Keeps percent-encoding: routes decode the components of a path after splitting it.
    static std::size_t keepEscapes(void *, MHD_Connection *, char *text)
    {
        return std::strlen(text);
    }

private:
    static MHD_Result send(HttpServer &server, MHD_Connection *connection, Response response)
    {
        MHD_Response *const message =
            response.nextEvents
                ? stream(server, connection, response)
                : MHD_create_response_from_buffer(response.body.size(), response.body.data(),
                                                  MHD_RESPMEM_MUST_COPY);
        for (const auto &[name, value] : response.headers)
            MHD_add_response_header(message, name.c_str(), value.c_str());
        const MHD_Result queued =
            MHD_queue_response(connection, static_cast<unsigned>(response.status), message);
        MHD_destroy_response(message);
        return queued;
    }

    static MHD_Response *stream(HttpServer &server, MHD_Connection *connection, Response &response)
    {
        auto *const stream = new Stream{server, connection, socketOf(connection),
                                        std::move(response.nextEvents), std::move(response.wakeup)};
        {
            const std::lock_guard lock(server.m_mutex);
            server.m_streams.insert(stream);
            server.m_changed.notify_all();
        }
        return MHD_create_response_from_callback(MHD_SIZE_UNKNOWN, streamBlock, read, stream,
                                                 endStream);
    }

    static ssize_t read(void *stream, std::uint64_t, char *to, std::size_t size)
    {
        try {
            return static_cast<Stream *>(stream)->read(to, size);
        } catch (const std::exception &error) {
            std::fprintf(stderr, "tolvane-backend: events: %s\n", error.what());
            return MHD_CONTENT_READER_END_WITH_ERROR;
        }
    }

    static void endStream(void *context)
    {
        const std::unique_ptr<Stream> stream(static_cast<Stream *>(context));
        const std::lock_guard lock(stream->server.m_mutex);
        stream->server.m_streams.erase(stream.get());
    }
};

HttpServer::HttpServer(std::size_t maxBody, Handler handler)
    : m_maxBody(maxBody)
    , m_handler(std::move(handler))
{
}

HttpServer::~HttpServer()
{
    if (m_socket >= 0)
        ::close(m_socket);
}

int HttpServer::bind(const std::string &host, int port)
{
    m_socket = listenOn(host, port);
    return m_socket < 0 ? -1 : portOf(m_socket);
}

bool HttpServer::run()
{
    MHD_Daemon *const daemon = MHD_start_daemon(
        MHD_USE_AUTO_INTERNAL_THREAD | MHD_ALLOW_SUSPEND_RESUME, 0, nullptr, nullptr,
        Callbacks::handle, this, MHD_OPTION_LISTEN_SOCKET, m_socket, MHD_OPTION_URI_LOG_CALLBACK,
        Callbacks::begin, this, MHD_OPTION_NOTIFY_COMPLETED, Callbacks::end, this,
        MHD_OPTION_UNESCAPE_CALLBACK, Callbacks::keepEscapes, nullptr,
        MHD_OPTION_CONNECTION_TIMEOUT, connectionTimeout, MHD_OPTION_CONNECTION_LIMIT,
        maxConnections, MHD_OPTION_CONNECTION_MEMORY_LIMIT, maxHeadSize, MHD_OPTION_END);
    if (!daemon)
        return false;
    serve();
    MHD_quiesce_daemon(daemon);
    wakeStreams(false);
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, shutdownTimeout, [this] { return m_exchangeCount == 0; });
    }
    MHD_stop_daemon(daemon);
    return true;
}

// Suspended connections are not watched. While there are streams, this wakes the streams of clients
// that have disconnected, and all of them for a heartbeat.
void HttpServer::serve()
{
    auto nextHeartbeat = std::chrono::steady_clock::now() + heartbeatInterval;
    std::unique_lock lock(m_mutex);
    while (!m_isStopping) {
        if (m_streams.empty())
            m_changed.wait(lock, [this] { return m_isStopping || !m_streams.empty(); });
        else
            m_changed.wait_for(lock, clientCheckInterval, [this] { return m_isStopping; });
        const auto now = std::chrono::steady_clock::now();
        const bool isHeartbeat = now >= nextHeartbeat;
        if (isHeartbeat)
            nextHeartbeat = now + heartbeatInterval;
        lock.unlock();
        wakeStreams(isHeartbeat);
        lock.lock();
    }
}

void HttpServer::wakeStreams(bool isHeartbeat)
{
    const std::lock_guard lock(m_mutex);
    for (Stream *const stream : m_streams) {
        stream->isHeartbeatDue = stream->isHeartbeatDue || isHeartbeat;
        if (isHeartbeat || m_isStopping || isClosedByClient(stream->socket))
            stream->wakeup->release();
    }
}

void HttpServer::shutDown()
{
    const std::lock_guard lock(m_mutex);
    m_isStopping = true;
    m_changed.notify_all();
}

} // namespace tolvane::backend
