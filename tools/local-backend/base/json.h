// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvane::backend {

/// Context for rendering records as JSON.
struct RenderContext
{
    /// Like "http://127.0.0.1:8787/api"; URLs in records begin with it.
    std::string baseUrl;
    /// A JSON list, the same for every ticket.
    std::string schedules;
};

std::string toJson(const Message &message, const RenderContext &context);
std::string toJson(const Ticket &ticket, const RenderContext &context);
std::string toJson(const std::vector<Preview> &previews, const RenderContext &context);
/// For the agent page only.
std::string toJson(const AgentTicket &ticket, const RenderContext &context);
std::string toJson(const std::vector<AgentTicket> &tickets, const RenderContext &context);
/// The payload that the host receives.
std::string toJson(const Push &push, const RenderContext &context);
std::string toJson(const std::map<std::string, std::string> &texts);

/// The URL of a file that is stored as "HASH/NAME".
std::string attachmentUrl(std::string_view path, const RenderContext &context);

} // namespace tolvane::backend
