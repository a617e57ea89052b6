// SPDX-License-Identifier: MIT
#include "agentguard.h"

#include "errors.h"
#include "routing.h"
#include "text.h"

#include <algorithm>
#include <array>

namespace tolvane::backend {

namespace {

constexpr int forbidden = 403;

// A cross-site page can send it only after a CORS preflight request, which the backend never
// grants.
constexpr const char *agentHeader = "X-Tolvane-Agent";

constexpr std::array<std::string_view, 3> loopbackNames = {"localhost", "127.0.0.1", "[::1]"};

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
    return std::find(accepted.begin(), accepted.end(), value) != accepted.end();
}

} // namespace

void rejectRemoteRequests(const httplib::Request &request)
{
    if (!isLoopback(request.remote_addr))
        throw HttpError(forbidden, "the agent page is available on the backend's machine only");
    const std::string host = request.get_header_value("Host");
    const auto isHost = [name = withoutPort(host)](std::string_view own) {
        return equalIgnoringCase(name, own);
    };
    if (std::none_of(loopbackNames.begin(), loopbackNames.end(), isHost))
        throw HttpError(forbidden,
                        "the Host of the agent page has to be localhost, 127.0.0.1 or [::1]");
}

void rejectCrossSiteRequests(const httplib::Request &request)
{
    const std::string own = "http://" + request.get_header_value("Host");
    const bool isOwn =
        isOneOf(request.get_header_value("Origin"), {"", own}) &&
        isOneOf(request.get_header_value("Sec-Fetch-Site"), {"", "none", "same-origin"});
    if (!isOwn)
        throw HttpError(forbidden, "cross-site requests are not allowed");
    if (methodOf(request) != "GET" && !request.has_header(agentHeader))
        throw HttpError(forbidden, std::string("the header ") + agentHeader + " is missing");
}

} // namespace tolvane::backend
