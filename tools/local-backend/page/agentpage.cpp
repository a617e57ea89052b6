// SPDX-License-Identifier: MIT
#include "page/agentpage.h"

#include "http/routing.h"
#include "settings/settings.h"

#include <algorithm>
#include <array>

namespace tolvane::backend {

namespace {

// The page may run its own scripts only and connect to the backend only; Trusted Types keep text
// from becoming markup.
constexpr const char *policy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob: data:;"
    " connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none';"
    " require-trusted-types-for 'script'; trusted-types 'none'";

// The types of the page's files by their suffixes.
constexpr std::array types = {
    std::pair{".html", "text/html; charset=utf-8"},
    std::pair{".css", "text/css; charset=utf-8"},
    std::pair{".js", "text/javascript; charset=utf-8"},
    std::pair{".mjs", "text/javascript; charset=utf-8"},
};

} // namespace

void respondWithPage(const Request &request, Response &response)
{
    if (methodOf(request) != "GET") {
        response.setHeader("Allow", "GET");
        throw HttpError(405, "the page supports GET only");
    }
    const std::string_view path = pathOf(request);
    if (path == "/" || path == "/agent/") {
        response.status = 302;
        response.setHeader("Location", "/agent");
        return;
    }
    const std::string name = path == "/agent" ? "agent.html" : std::string(path.substr(1));
    const auto type = std::ranges::find_if(
        types, [&name](const auto &known) { return name.ends_with(known.first); });
    // A path with dots could leave the folder of the page.
    if (type == types.end() || name.find("..") != name.npos || !hasAsset(name))
        throw HttpError(404, "there is no such path");
    response.setHeader("Content-Security-Policy", policy);
    response.setHeader("Cross-Origin-Opener-Policy", "same-origin");
    response.setHeader("Cross-Origin-Resource-Policy", "same-origin");
    response.setHeader("Referrer-Policy", "no-referrer");
    response.setContent(asset(name), type->second);
}

} // namespace tolvane::backend
