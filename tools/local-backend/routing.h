// SPDX-License-Identifier: MIT
#pragma once

#include "errors.h"

#include <httplib.h>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::backend {

/// The percent-encoded components of a URL path.
using Path = std::vector<std::string_view>;

/// A request and its response, with the data that handlers need.
struct Call
{
    const httplib::Request &request;
    httplib::Response &response;
    const std::string &body;
    Path path = {};
    std::string customer = {};

    std::string component(std::size_t place) const;
    void answer(const std::string &json) const;
};

void setError(httplib::Response &response, int status, const std::string &reason);

/// The percent-encoded path of the URL, without the query.
std::string_view addressOf(const httplib::Request &request);
/// The components after the prefix; empty when the path does not begin with it.
Path pathBehind(std::string_view prefix, const httplib::Request &request);
/// A "*" in a pattern matches any single component that is not empty.
bool matches(const Path &path, std::string_view pattern);
/// Returns GET for HEAD, because httplib drops the body of its response.
std::string_view methodOf(const httplib::Request &request);

/// The first route that matches the request. Routes have a `method` and a `pattern`. Throws a
/// Refusal.
template <typename Routes>
const auto &routeOf(const Routes &routes, const Call &call)
{
    std::string allowed;
    for (const auto &route : routes) {
        if (!matches(call.path, route.pattern))
            continue;
        if (route.method == methodOf(call.request))
            return route;
        allowed += (allowed.empty() ? "" : ", ") + std::string(route.method);
    }
    if (allowed.empty())
        throw Refusal(404, "there is no such path");
    call.response.set_header("Allow", allowed);
    throw Refusal(405, "the path does not support " + call.request.method);
}

} // namespace tolvane::backend
