// SPDX-License-Identifier: MIT
#pragma once

#include "http/httpmessage.h"

namespace tolvane::backend {

/// Throws an HttpError for a request from another machine, and for a request whose Host header is
/// not a loopback name (DNS rebinding).
void rejectRemoteRequests(const Request &request);

/// Throws an HttpError for a cross-site request by a browser on this machine.
void rejectCrossSiteRequests(const Request &request);

/// Throws an HttpError for requests from pages of other sites, and for DNS rebinding: the Host
/// header must contain a loopback name, `host`, or a numeric address, which cannot be rebound.
void rejectForeignPages(const Request &request, const std::string &host);

} // namespace tolvane::backend
