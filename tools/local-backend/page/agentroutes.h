// SPDX-License-Identifier: MIT
#pragma once

#include "api/requestcontext.h"

namespace tolvane::backend {

/// The agent page, on which people reply as agents, and its API. They need no key, but are
/// available on this machine only.
bool isAgentRequest(const Request &request);
/// Throws an HttpError or an InputError.
void dispatchAgentRequest(RequestContext &context);

} // namespace tolvane::backend
