// SPDX-License-Identifier: MIT
#include "http/requestguard.h"

#include "base/errors.h"
#include "base/text.h"
#include "http/routing.h"

#include <algorithm>

namespace tolvane::backend {

namespace {

constexpr int forbidden = 403;

// A cross-site page can send it only after a CORS preflight request, which the backend never
// grants.
constexpr const char *agentHeader = "X-Tolvane-Agent";

bool isLoopback(std::string_view ip)
{
    constexpr std::string_view mapped = "::ffff:";
    if (ip.starts_with(mapped))
        ip.remove_prefix(mapped.size());
    return ip == "::1" || ip.starts_with("127.");
}

std::string_view withoutPort(std::string_view host)
{
    const auto colon = host.rfind(':');
    const bool hasPort = colon != std::string_view::npos && !host.ends_with(']');
    return hasPort ? host.substr(0, colon) : host;
}

bool isOneOf(std::string_view value, std::initializer_list<std::string_view> accepted)
{
    return std::any_of(accepted.begin(), accepted.end(),
                       [value](std::string_view each) { return equalIgnoringCase(value, each); });
}

bool isLoopbackName(std::string_view name)
{
    return isOneOf(name, {"localhost", "127.0.0.1", "[::1]"});
}

bool isAddress(std::string_view name)
{
    return (name.starts_with('[') && name.ends_with(']')) ||
           name.find_first_not_of("0123456789.") == name.npos;
}

bool isSameOrigin(const Request &request)
{
    const std::string own = "http://" + request.header("Host");
    return isOneOf(request.header("Origin"), {"", own}) &&
           isOneOf(request.header("Sec-Fetch-Site"), {"", "none", "same-origin"});
}

} // namespace

void rejectRemoteRequests(const Request &request)
{
    if (!isLoopback(request.remoteAddress()))
        throw HttpError(forbidden, "the agent page is available on the backend's machine only");
    const std::string host = request.header("Host");
    if (!isLoopbackName(withoutPort(host)))
        throw HttpError(forbidden,
                        "the Host of the agent page has to be localhost, 127.0.0.1 or [::1]");
}

void rejectCrossSiteRequests(const Request &request)
{
    if (!isSameOrigin(request))
        throw HttpError(forbidden, "cross-site requests are not allowed");
    if (methodOf(request) != "GET" && !request.hasHeader(agentHeader))
        throw HttpError(forbidden, std::string("the header ") + agentHeader + " is missing");
}

void rejectForeignPages(const Request &request, const std::string &host)
{
    const std::string header = request.header("Host");
    const std::string_view name = withoutPort(header);
    if (!isLoopbackName(name) && !isAddress(name) && !isOneOf(name, {host}))
        throw HttpError(forbidden,
                        "the Host has to be localhost, an address or the name in --host");
    if (!isSameOrigin(request))
        throw HttpError(forbidden, "cross-site requests are not allowed");
}

} // namespace tolvane::backend
