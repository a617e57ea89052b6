// SPDX-License-Identifier: MIT
#pragma once

#include <httplib.h>

namespace tolvane::backend {

/// Throws a Refusal for a request from another machine, and for a request whose Host header is not
/// a loopback name (DNS rebinding).
void refuseStrangers(const httplib::Request &request);

/// Throws a Refusal for a cross-site request by a browser on this machine.
void refuseOtherSites(const httplib::Request &request);

} // namespace tolvane::backend
