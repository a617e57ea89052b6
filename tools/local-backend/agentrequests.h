// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <httplib.h>
#include <string>

namespace tolvane::backend {

/// Parse multipart bodies. Throw an HttpError.
AgentMessage parseAgentMessage(const httplib::Request &request, const std::string &body);
Upload parsePicture(const httplib::Request &request, const std::string &body);

/// Parse JSON bodies. Throw an HttpError.
TicketChange parseTicketChange(const std::string &body);
CustomPush parsePush(const std::string &body);
bool parseAutomatic(const std::string &body);

} // namespace tolvane::backend
