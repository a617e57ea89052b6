// SPDX-License-Identifier: MIT
#pragma once

#include "platform/network/urlsession.h"

#include <optional>

namespace tolvane {

/// True for the statuses of redirects that repeat the request with its method and body.
bool keepsMethod(int status);

/// The request that follows a redirect. Absent if the response is not a redirect, or if the library
/// must not follow it.
///
/// @param location the value of the header "Location"
std::optional<UrlRequest> redirectedRequest(UrlRequest request, int status,
                                            const QByteArray &location);

} // namespace tolvane
