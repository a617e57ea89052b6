// SPDX-License-Identifier: MIT
#pragma once

#include "http/wakeup.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <strings.h>

namespace tolvane::backend {

struct Request
{
    struct LessIgnoringCase
    {
        bool operator()(const std::string &left, const std::string &right) const
        {
            return ::strcasecmp(left.c_str(), right.c_str()) < 0;
        }
    };

    std::string method;
    /// Path and query as the client sent them.
    std::string target;
    std::string remoteAddress;
    /// The first header wins.
    std::map<std::string, std::string, LessIgnoringCase> headers;
    std::string body;
    /// The body is larger than the server allows, and has been dropped.
    bool isTooLarge = false;

    bool hasHeader(const std::string &name) const { return headers.contains(name); }
    std::string header(const std::string &name) const
    {
        const auto found = headers.find(name);
        return found == headers.end() ? std::string() : found->second;
    }
};

struct Response
{
    int status = 200;
    std::map<std::string, std::string> headers;
    std::string body;
    /// Returns the next bytes of a response without an end, or an empty text while no bytes are
    /// waiting. A call means that the connection has accepted the bytes of the previous call.
    std::function<std::string()> nextEvents;
    /// Releasing it makes the server call nextEvents().
    std::shared_ptr<const Wakeup> wakeup;

    void setHeader(std::string name, std::string value)
    {
        headers.insert_or_assign(std::move(name), std::move(value));
    }
    void setContent(std::string content, std::string type)
    {
        body = std::move(content);
        setHeader("Content-Type", std::move(type));
    }
};

} // namespace tolvane::backend
