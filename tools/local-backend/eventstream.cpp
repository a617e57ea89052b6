// SPDX-License-Identifier: MIT
#include "eventstream.h"

namespace tolvane::backend {

namespace {

// The interval of the comments that a stream without events sends.
constexpr std::chrono::seconds heartbeat{15};

} // namespace

void respondWithEvents(const RequestContext &context, const HttpServer &server,
                       const PollableSemaphore &semaphore,
                       std::function<bool(httplib::DataSink &)> writeEvents)
{
    const int connection = std::stoi(context.request.get_header_value(connectionId));
    context.response.set_header("Cache-Control", "no-store");
    context.response.set_chunked_content_provider(
        "text/event-stream",
        [&server, &semaphore, connection,
         writeEvents = std::move(writeEvents)](std::size_t, httplib::DataSink &sink) {
            if (!writeEvents(sink))
                return false;
            switch (server.waitForSemaphore(semaphore, connection, heartbeat)) {
            case HttpServer::WaitResult::Closed:
                sink.done();
                return true;
            case HttpServer::WaitResult::Timeout:
                return write(sink, ":\n\n");
            case HttpServer::WaitResult::Released:
                break;
            }
            return true;
        });
}

bool write(httplib::DataSink &sink, const std::string &text)
{
    return sink.write(text.data(), text.size());
}

} // namespace tolvane::backend
