// SPDX-License-Identifier: MIT
#pragma once

#include "base/jsonnode.h"
#include "base/records.h"

namespace tolvane::backend {

/// The JSON of records. URLs in them begin with `baseUrl`, like "http://127.0.0.1:8787/api".
Json toJson(const Message &message, const std::string &baseUrl);
/// Without the schedules, which are the same for all tickets.
Json toJson(const Ticket &ticket, const std::string &baseUrl);
Json toJson(const Preview &preview, const std::string &baseUrl);
/// For the agent page only.
Json toJson(const AgentTicket &ticket, const std::string &baseUrl);
/// The payload that the host receives.
Json toJson(const Push &push, const std::string &baseUrl);

template <typename Record>
Json toJson(const std::vector<Record> &records, const std::string &baseUrl)
{
    Json list = Json::array();
    for (const Record &record : records)
        list.push_back(toJson(record, baseUrl));
    return list;
}

/// The URL of a file that is stored as "HASH/NAME".
std::string attachmentUrl(std::string_view path, const std::string &baseUrl);

} // namespace tolvane::backend
