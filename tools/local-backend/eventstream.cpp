// SPDX-License-Identifier: MIT
#include "eventstream.h"

namespace tolvane::backend {

namespace {

// The interval of the comments that a stream without events sends.
constexpr std::chrono::seconds heartbeat{15};

} // namespace

void answerWithEvents(const Call &call, const HttpServer &server, const Event &news,
                      std::function<bool(httplib::DataSink &)> writeNews)
{
    const int connection = std::stoi(call.request.get_header_value(connectionId));
    call.response.set_header("Cache-Control", "no-store");
    call.response.set_chunked_content_provider(
        "text/event-stream", [&server, &news, connection, writeNews = std::move(writeNews)](
                                 std::size_t, httplib::DataSink &sink) {
            if (!writeNews(sink))
                return false;
            switch (server.awaitEvent(news, connection, heartbeat)) {
            case HttpServer::Awaited::End:
                sink.done();
                return true;
            case HttpServer::Awaited::Timeout:
                return write(sink, ":\n\n");
            case HttpServer::Awaited::News:
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
