// SPDX-License-Identifier: MIT
#include "http/routing.h"

#include "base/text.h"

#include <algorithm>
#include <microhttpd.h>

namespace tolvane::backend {

namespace {

constexpr const char *jsonType = "application/json";

} // namespace

std::string RequestContext::pathComponent(std::size_t index) const
{
    std::string component(path.at(index));
    component.resize(MHD_http_unescape(component.data()));
    return component;
}

void RequestContext::respond(const Json &json) const
{
    response.setContent(toText(json), jsonType);
}

void setError(Response &response, int status, const std::string &reason)
{
    response.status = status;
    response.setContent(toText(Json{{"error", reason}}), jsonType);
}

std::string_view pathOf(const Request &request)
{
    const std::string_view target = request.target;
    return target.substr(0, target.find('?'));
}

Path componentsAfter(std::string_view prefix, const Request &request)
{
    const std::string_view path = pathOf(request);
    return path.starts_with(prefix) ? split(path.substr(prefix.size()), '/') : Path();
}

bool matches(const Path &path, std::string_view pattern)
{
    const Path expected = split(pattern, '/');
    return std::equal(path.begin(), path.end(), expected.begin(), expected.end(),
                      [](std::string_view component, std::string_view wanted) {
                          return wanted == "*" ? !component.empty() : component == wanted;
                      });
}

std::string_view methodOf(const Request &request)
{
    return request.method == "HEAD" ? std::string_view("GET") : std::string_view(request.method);
}

} // namespace tolvane::backend
