// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <httplib.h>
#include <string>

namespace tolvane::backend {

/// Of multipart bodies. Throw a Refusal.
AgentMessage agentMessageIn(const httplib::Request &request, const std::string &body);
Upload pictureIn(const httplib::Request &request, const std::string &body);

/// Of JSON bodies. Throw a Refusal.
TicketChange ticketChangeIn(const std::string &body);
HandmadePush pushIn(const std::string &body);
bool automaticIn(const std::string &body);

} // namespace tolvane::backend
