// SPDX-License-Identifier: MIT
#pragma once

#include "http/httpmessage.h"

namespace tolvane::backend {

/// Responds with the agent page or one of its files. Throws an HttpError.
void respondWithPage(const Request &request, Response &response);

} // namespace tolvane::backend
