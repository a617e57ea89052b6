// SPDX-License-Identifier: MIT
#pragma once

#include "errors.h"

#include <httplib.h>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::backend {

/// The components of an address, still encoded.
using Path = std::vector<std::string_view>;

/// A request on its way to the one who answers it.
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

/// The address without its query, encoded.
std::string_view addressOf(const httplib::Request &request);
/// What is behind the prefix; nothing when the address does not begin with it.
Path pathBehind(std::string_view prefix, const httplib::Request &request);
/// "*" in a pattern stands for any one component that is not empty.
bool matches(const Path &path, std::string_view pattern);
/// HEAD is GET whose body httplib keeps back.
std::string_view methodOf(const httplib::Request &request);

/// The first that matches the call, of records with `method` and `pattern`. Throws a Refusal.
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
        throw Refusal(404, "there is no such address");
    call.response.set_header("Allow", allowed);
    throw Refusal(405, "the address does not take " + call.request.method);
}

} // namespace tolvane::backend
