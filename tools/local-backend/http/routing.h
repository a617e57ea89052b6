// SPDX-License-Identifier: MIT
#pragma once

#include "base/errors.h"
#include "http/httpmessage.h"

#include <string_view>
#include <vector>

namespace tolvane::backend {

/// The percent-encoded components of a URL path.
using Path = std::vector<std::string_view>;

/// The percent-encoded path of the URL, without the query.
std::string_view pathOf(const Request &request);
/// The components after the prefix; empty when the path does not begin with it.
Path componentsAfter(std::string_view prefix, const Request &request);
/// A "*" in a pattern matches any single component that is not empty.
bool matches(const Path &path, std::string_view pattern);
/// Returns GET for HEAD, because the server drops the body of its response.
std::string_view methodOf(const Request &request);

/// The first route that matches the request of `context`. Routes have a `method` and a `pattern`.
/// Throws a HttpError.
template <typename Routes, typename Context>
const auto &findRoute(const Routes &routes, const Context &context)
{
    std::string allowed;
    for (const auto &route : routes) {
        if (!matches(context.path, route.pattern))
            continue;
        if (route.method == methodOf(context.request))
            return route;
        allowed += (allowed.empty() ? "" : ", ") + std::string(route.method);
    }
    if (allowed.empty())
        throw HttpError(404, "there is no such path");
    context.response.setHeader("Allow", allowed);
    throw HttpError(405, "the path does not support " + context.request.method);
}

} // namespace tolvane::backend
