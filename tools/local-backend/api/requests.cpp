// SPDX-License-Identifier: MIT
#include "api/requests.h"

#include "base/errors.h"
#include "base/jsonnode.h"
#include "base/text.h"
#include "http/multipart.h"

#include <QtCore/QUrlQuery>

#include <algorithm>
#include <array>
#include <charconv>

namespace tolvane::backend {

namespace {

constexpr std::array<std::string_view, 11> deviceFields = {
    "appBuild", "appVersion", "batteryLevel", "batteryState", "deviceModel", "deviceName",
    "locale",   "osVersion",  "screenHeight", "screenWidth",  "timezone",
};

std::string textOf(const Part &part)
{
    if (!isUtf8(part.content))
        throw HttpError(400, "the part '" + part.name + "' is not UTF-8");
    return std::string(part.content);
}

} // namespace

Form parseForm(const Request &request)
{
    Form form;
    for (const Part &part : parseMultipart(request.header("Content-Type"), request.body)) {
        if (!isUtf8(part.name) || !isUtf8(part.fileName))
            throw HttpError(400, "a part's name is not UTF-8");
        if (part.name == "attachments[]")
            form.uploads.push_back({part.fileName, part.mimeType, std::string(part.content)});
        else if (!form.texts.emplace(part.name, textOf(part)).second)
            throw HttpError(400, "the part '" + part.name + "' occurs twice");
    }
    return form;
}

NewMessage parseMessage(Form form)
{
    const auto content = form.texts.find("message");
    if (content == form.texts.end())
        throw HttpError(400, "the part 'message' is missing");
    if (content->second.empty() && form.uploads.empty())
        throw HttpError(400, "a message needs a text or an attachment");
    return {std::move(content->second), std::move(form.uploads)};
}

std::string customerIdOf(const Request &request)
{
    std::string id = request.header(customerHeader);
    if (id.empty())
        return newId();
    if (!isCustomerId(id))
        throw HttpError(400,
                        std::string(customerHeader) + " allows up to 128 visible ASCII characters");
    return id;
}

std::string queryItem(const Request &request, const QString &name)
{
    const QUrlQuery query(QString::fromStdString(request.target).section(u'?', 1));
    return query.queryItemValue(name, QUrl::FullyDecoded).toStdString();
}

std::optional<std::uint64_t> lastEventIdOf(const Request &request)
{
    const std::string text = request.header("Last-Event-ID");
    std::uint64_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && parsed == end ? std::optional(number) : std::nullopt;
}

std::string hostOf(const Request &request, const std::string &fallback)
{
    constexpr std::size_t maxLength = 255;
    const std::string host = request.header("Host");
    const bool isValid =
        !host.empty() && host.size() <= maxLength &&
        std::all_of(host.begin(), host.end(), [](unsigned char c) {
            return std::isalnum(c) ||
                   std::string_view("-.:[]_").find(static_cast<char>(c)) != std::string_view::npos;
        });
    return isValid ? host : fallback;
}

NewTicket parseNewTicket(const Request &request)
{
    Form form = parseForm(request);
    NewTicket ticket;
    ticket.channel = form.texts["channel"];
    for (const std::string_view field : deviceFields) {
        const auto text = form.texts.find("deviceInfo[" + std::string(field) + ']');
        if (text != form.texts.end())
            ticket.device.emplace(field, text->second);
    }
    ticket.message = parseMessage(std::move(form));
    return ticket;
}

NewMessage parseNewMessage(const Request &request)
{
    return parseMessage(parseForm(request));
}

CustomerUpdate parseCustomerUpdate(const std::string &body)
{
    const JsonNode fields = JsonNode::parse(body);
    return {.email = fields.optionalText("email"),
            .originalId = fields.optionalText("originalId"),
            .deviceToken = {}};
}

CustomerUpdate parseDeviceUpdate(const std::string &body)
{
    const JsonNode fields = JsonNode::parse(body);
    CustomerUpdate update{.email = {},
                          .originalId = fields.optionalText("originalId"),
                          .deviceToken = fields.optionalText("deviceToken")};
    if (!update.deviceToken)
        throw HttpError(400, "'deviceToken' is missing");
    return update;
}

} // namespace tolvane::backend
