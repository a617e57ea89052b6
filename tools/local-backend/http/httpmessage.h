// SPDX-License-Identifier: MIT
#pragma once

#include "http/eventstream.h"

#include <map>
#include <memory>
#include <string>

namespace tolvane::backend {

struct Request
{
    MHD_Connection *connection = nullptr;
    std::string method;
    /// Path and query as the client sent them.
    std::string target;
    std::string body;
    /// The body is larger than the server allows, and has been dropped.
    bool isTooLarge = false;

    bool hasHeader(const char *name) const;
    /// Empty when there is no such header.
    std::string header(const char *name) const;
    /// The numeric address of the client.
    std::string remoteAddress() const;
};

struct Response
{
    int status = 200;
    std::map<std::string, std::string> headers;
    std::string body;
    /// Replaces the body by a stream without an end.
    std::shared_ptr<EventStream> events;

    void setHeader(std::string name, std::string value)
    {
        headers.insert_or_assign(std::move(name), std::move(value));
    }
    void setContent(std::string content, std::string type)
    {
        body = std::move(content);
        setHeader("Content-Type", std::move(type));
    }
    void setEvents(std::shared_ptr<EventStream> stream)
    {
        events = std::move(stream);
        setHeader("Content-Type", "text/event-stream");
        setHeader("Cache-Control", "no-store");
    }
};

} // namespace tolvane::backend
