// SPDX-License-Identifier: MIT
#pragma once

#include "api/backend.h"
#include "http/routing.h"

namespace tolvane::backend {

/// A request and its response, with the data that handlers need.
struct RequestContext
{
    const Request &request;
    Response &response;
    Backend &backend;
    /// Like "http://127.0.0.1:8787/api"; URLs in records begin with it.
    std::string baseUrl;
    Path path = {};
    std::string customer = {};

    std::string pathComponent(std::size_t index) const;
    void respond(const Json &json) const;
};

void setError(Response &response, int status, const std::string &reason);

template <typename Value>
Value orNotFound(std::optional<Value> value)
{
    if (!value)
        throw HttpError(404, "there is no such ticket");
    return std::move(*value);
}

} // namespace tolvane::backend
