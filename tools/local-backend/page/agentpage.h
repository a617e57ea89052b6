// SPDX-License-Identifier: MIT
#pragma once

#include "http/routing.h"

namespace tolvane::backend {

/// Responds with the agent page or one of its files. Throws an HttpError.
void respondWithPage(const RequestContext &context);

} // namespace tolvane::backend
