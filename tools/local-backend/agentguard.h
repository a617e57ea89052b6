// SPDX-License-Identifier: MIT
#pragma once

#include <httplib.h>

namespace tolvane::backend {

/// Throws an HttpError for a request from another machine, and for a request whose Host header is
/// not a loopback name (DNS rebinding).
void rejectRemoteRequests(const httplib::Request &request);

/// Throws an HttpError for a cross-site request by a browser on this machine.
void rejectCrossSiteRequests(const httplib::Request &request);

} // namespace tolvane::backend
