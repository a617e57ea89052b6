// SPDX-License-Identifier: MIT
#include "api/requestcontext.h"

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

} // namespace tolvane::backend
