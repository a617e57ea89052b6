// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <QtCore/QJsonObject>

#include <httplib.h>
#include <string>

namespace tolvane::backend {

inline constexpr const char *customerHeader = "X-Tolvane-Customer";

/// The customer that the request names, or a new one. Throws a Refusal for an id that is no good.
std::string customerOf(const httplib::Request &request);

/// The text of the query's item, which may lack a value; absent when there is no such item.
std::optional<std::string> queryItem(const httplib::Request &request, std::string_view name);

/// The number of the last push that the client has; absent when it tells none.
std::optional<std::uint64_t> lastPushOf(const httplib::Request &request);

/// The "Host" header when it can stand in an address, else the other one.
std::string hostOf(const httplib::Request &request, const std::string &otherwise);

/// Like "http://127.0.0.1:8787/api", of a host like "127.0.0.1:8787".
std::string baseUrlOn(const std::string &host);

/// The body's texts by their names, and its files in their order.
struct Form
{
    std::map<std::string, std::string> texts;
    std::vector<Upload> uploads;
};

/// Of multipart bodies. Throw a Refusal.
Form formIn(const httplib::Request &request, const std::string &body);
NewMessage messageIn(Form form);
NewTicket newTicketIn(const httplib::Request &request, const std::string &body);
NewMessage newMessageIn(const httplib::Request &request, const std::string &body);

/// Of JSON bodies. Throw a Refusal.
QJsonObject objectIn(const std::string &body);
std::optional<std::string> optionalText(const QJsonObject &object, const char *key);
CustomerUpdate customerUpdateIn(const std::string &body);
CustomerUpdate deviceUpdateIn(const std::string &body);

} // namespace tolvane::backend
