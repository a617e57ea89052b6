// SPDX-License-Identifier: MIT
#include "page/agentpage.h"

#include "http/routing.h"
#include "settings/settings.h"

#include <algorithm>
#include <array>

namespace tolvane::backend {

namespace {

constexpr std::string_view pagePath = "/agent";
constexpr const char *script = "text/javascript; charset=utf-8";

// The page may run its own scripts only and connect to the backend only; Trusted Types keep text
// from becoming markup.
constexpr const char *policy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob: data:;"
    " connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none';"
    " require-trusted-types-for 'script'; trusted-types 'none'";

struct PageFile
{
    std::string_view path;
    const char *asset;
    const char *type;
};

constexpr std::array<PageFile, 11> files = {{
    {pagePath, "agent.html", "text/html; charset=utf-8"},
    {"/agent/agent.css", "agent.css", "text/css; charset=utf-8"},
    {"/agent/main.js", "agent/main.js", script},
    {"/agent/api.js", "agent/api.js", script},
    {"/agent/dom.js", "agent/dom.js", script},
    {"/agent/tickets.js", "agent/tickets.js", script},
    {"/agent/conversation.js", "agent/conversation.js", script},
    {"/agent/composer.js", "agent/composer.js", script},
    {"/agent/push.js", "agent/push.js", script},
    {"/agent/branding.js", "agent/branding.js", script},
    {"/agent/schedules.js", "agent/schedules.js", script},
}};

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
        response.setHeader("Location", std::string(pagePath));
        return;
    }
    const auto file = std::find_if(files.begin(), files.end(),
                                   [path](const PageFile &known) { return known.path == path; });
    if (file == files.end())
        throw HttpError(404, "there is no such path");
    response.setHeader("Content-Security-Policy", policy);
    response.setHeader("Cross-Origin-Opener-Policy", "same-origin");
    response.setHeader("Cross-Origin-Resource-Policy", "same-origin");
    response.setHeader("Referrer-Policy", "no-referrer");
    response.setContent(asset(file->asset), file->type);
}

} // namespace tolvane::backend
