// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"
#include "http/httpmessage.h"

#include <string>

namespace tolvane::backend {

/// Parse multipart bodies. Throw an HttpError.
AgentMessage parseAgentMessage(const Request &request);
Upload parsePicture(const Request &request);

/// Parse JSON bodies. Throw an HttpError or an InputError.
TicketChange parseTicketChange(const std::string &body);
CustomPush parsePush(const std::string &body);
bool parseAutomatic(const std::string &body);

} // namespace tolvane::backend
