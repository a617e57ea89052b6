// SPDX-License-Identifier: MIT
#include "http/httpserver.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <microhttpd.h>
#include <netdb.h>
#include <poll.h>
#include <utility>

namespace tolvane::backend {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr unsigned connectionTimeout = 10; // seconds without a byte
constexpr unsigned maxConnections = 1000;
constexpr std::size_t maxHeadSize = 65'536;
constexpr std::size_t streamBlock = 16'384;
// The interval in which the server notices clients that have disconnected, and shutDown().
constexpr std::chrono::milliseconds checkInterval = 250ms;
// The interval of the comments that a stream without events sends.
constexpr std::chrono::seconds heartbeatInterval = 15s;
constexpr std::chrono::milliseconds shutdownTimeout = 700ms;

bool isClosedByClient(MHD_Connection *connection)
{
    const auto *const info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
    pollfd event{info->connect_fd, POLLRDHUP, 0};
    return ::poll(&event, 1, 0) > 0;
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
    const std::shared_ptr<EventStream> events;
    /// At first, because the headers are sent together with the first bytes.
    bool isHeartbeatDue = true;
    std::string pending = {};

    bool isOver() const { return server.m_isStopping || isClosedByClient(connection); }

    ssize_t read(char *to, std::size_t size)
    {
        while (pending.empty()) {
            if (isOver())
                return MHD_CONTENT_READER_END_OF_STREAM;
            pending = events->next();
            if (pending.empty() && std::exchange(isHeartbeatDue, false))
                pending = ":\n\n";
            if (pending.empty() && events->suspend(connection))
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
    static void *begin(void *, const char *target, MHD_Connection *connection)
    {
        return new Exchange{{.connection = connection, .method = {}, .target = target, .body = {}}};
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
        const std::unique_ptr<Exchange> exchange(static_cast<Exchange *>(*state));
        if (exchange && exchange->hasHeaders)
            --static_cast<HttpServer *>(context)->m_exchangeCount;
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
            response.events
                ? stream(server, connection, std::move(response.events))
                : MHD_create_response_from_buffer(response.body.size(), response.body.data(),
                                                  MHD_RESPMEM_MUST_COPY);
        for (const auto &[name, value] : response.headers)
            MHD_add_response_header(message, name.c_str(), value.c_str());
        const MHD_Result queued =
            MHD_queue_response(connection, static_cast<unsigned>(response.status), message);
        MHD_destroy_response(message);
        return queued;
    }

    static MHD_Response *stream(HttpServer &server, MHD_Connection *connection,
                                std::shared_ptr<EventStream> events)
    {
        auto *const stream = new Stream{server, connection, std::move(events)};
        server.m_streams.insert(stream);
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
    if (!m_daemon)
        return;
    // The library requires that no connection is suspended.
    m_isStopping = true;
    wakeStreams(false);
    MHD_stop_daemon(m_daemon);
}

int HttpServer::bind(const std::string &host, int port)
{
    addrinfo hints{};
    hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0)
        return -1;
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> addresses(found, &freeaddrinfo);
    for (const addrinfo *each = found; each && !m_daemon; each = each->ai_next) {
        unsigned flags = MHD_USE_AUTO | MHD_ALLOW_SUSPEND_RESUME;
        if (each->ai_family == AF_INET6)
            flags |= MHD_USE_DUAL_STACK;
        m_daemon = MHD_start_daemon(
            flags, 0, nullptr, nullptr, Callbacks::handle, this, MHD_OPTION_SOCK_ADDR,
            each->ai_addr, MHD_OPTION_URI_LOG_CALLBACK, Callbacks::begin, this,
            MHD_OPTION_NOTIFY_COMPLETED, Callbacks::end, this, MHD_OPTION_UNESCAPE_CALLBACK,
            Callbacks::keepEscapes, nullptr, MHD_OPTION_CONNECTION_TIMEOUT, connectionTimeout,
            MHD_OPTION_CONNECTION_LIMIT, maxConnections, MHD_OPTION_CONNECTION_MEMORY_LIMIT,
            maxHeadSize, MHD_OPTION_END);
    }
    return m_daemon ? MHD_get_daemon_info(m_daemon, MHD_DAEMON_INFO_BIND_PORT)->port : -1;
}

void HttpServer::run(const Work &work)
{
    auto nextHeartbeat = Clock::now() + heartbeatInterval;
    while (!m_isStopping) {
        const auto wait = std::min(checkInterval, work());
        MHD_run_wait(m_daemon, static_cast<std::int32_t>(wait.count()));
        const bool isHeartbeat = Clock::now() >= nextHeartbeat;
        if (isHeartbeat)
            nextHeartbeat = Clock::now() + heartbeatInterval;
        wakeStreams(isHeartbeat);
    }
    const auto end = Clock::now() + shutdownTimeout;
    while (m_exchangeCount > 0 && Clock::now() < end) {
        wakeStreams(false);
        MHD_run_wait(m_daemon, 10);
    }
}

// Suspended connections are not watched.
void HttpServer::wakeStreams(bool isHeartbeat)
{
    for (Stream *const stream : m_streams) {
        stream->isHeartbeatDue = stream->isHeartbeatDue || isHeartbeat;
        if (isHeartbeat || stream->isOver())
            stream->events->wake();
    }
}

} // namespace tolvane::backend
