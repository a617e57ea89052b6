// SPDX-License-Identifier: MIT
#pragma once

#include "httpmessage.h"

namespace tolvane::backend {

/// Throws an HttpError for a request from another machine, and for a request whose Host header is
/// not a loopback name (DNS rebinding).
void rejectRemoteRequests(const Request &request);

/// Throws an HttpError for a cross-site request by a browser on this machine.
void rejectCrossSiteRequests(const Request &request);

/// Rejects requests of another site's page, and of a page whose host name resolves to this machine
/// for the attack: a name has to be this machine's or `host`, an address may be any. Throws an
/// HttpError.
void rejectForeignPages(const Request &request, const std::string &host);

} // namespace tolvane::backend
