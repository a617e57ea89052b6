// SPDX-License-Identifier: MIT
#pragma once

#include <httplib.h>

namespace tolvane::backend {

/// Throws a Refusal for a request from another machine, and for one that a browser was led to send
/// here by a foreign name for this machine.
void refuseStrangers(const httplib::Request &request);

/// Throws a Refusal for a request by another site's page in a browser of this machine.
void refuseOtherSites(const httplib::Request &request);

} // namespace tolvane::backend
