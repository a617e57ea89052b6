// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"
#include "http/httpmessage.h"

#include <QtCore/QString>

namespace tolvane::backend {

inline constexpr const char *customerHeader = "X-Tolvane-Customer";

/// The request's customer id, or a new one. Throws an HttpError for an invalid id.
std::string customerIdOf(const Request &request);

/// The decoded value of a query item; empty if the request lacks the item.
std::string queryItem(const Request &request, const QString &name);

/// The number in the Last-Event-ID header: the last push that the client has received.
std::optional<std::uint64_t> lastEventIdOf(const Request &request);

/// The Host header, or `fallback` when the header is missing or not valid in a URL.
std::string hostOf(const Request &request, const std::string &fallback);

/// Parse multipart bodies. Throw an HttpError.
NewTicket parseNewTicket(const Request &request);
NewMessage parseNewMessage(const Request &request);
AgentMessage parseAgentMessage(const Request &request);
Upload parsePicture(const Request &request);

/// Parse JSON bodies. Throw an HttpError or an InputError.
CustomerUpdate parseCustomerUpdate(const std::string &body);
CustomerUpdate parseDeviceUpdate(const std::string &body);
TicketChange parseTicketChange(const std::string &body);
CustomPush parsePush(const std::string &body);
bool parseAutomatic(const std::string &body);

} // namespace tolvane::backend
