// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <httplib.h>
#include <string>

namespace tolvane::backend {

/// Parse multipart bodies. Throw a Refusal.
AgentMessage agentMessageIn(const httplib::Request &request, const std::string &body);
Upload pictureIn(const httplib::Request &request, const std::string &body);

/// Parse JSON bodies. Throw a Refusal.
TicketChange ticketChangeIn(const std::string &body);
HandmadePush pushIn(const std::string &body);
bool automaticIn(const std::string &body);

} // namespace tolvane::backend
