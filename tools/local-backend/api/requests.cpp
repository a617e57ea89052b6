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

constexpr std::size_t maxNameLength = 200;

// The image types that clients display.
constexpr std::array<std::string_view, 4> pictureTypes = {"image/png", "image/jpeg", "image/gif",
                                                          "image/webp"};

template <typename Value>
Value oneOf(std::initializer_list<Value> accepted, const std::string &name, const char *key)
{
    for (const Value value : accepted) {
        if (nameOf(value) == name)
            return value;
    }
    throw HttpError(400, '\'' + std::string(key) + "' cannot be '" + name + '\'');
}

Author agentNamed(const std::string &name, const char *key)
{
    return oneOf({Author::Ai, Author::Human}, name, key);
}

/// A multipart form: the texts by name, and the files in order.
struct Form
{
    std::map<std::string, std::string> texts;
    std::vector<Upload> uploads;
};

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

} // namespace

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

AgentMessage parseAgentMessage(const Request &request)
{
    Form form = parseForm(request);
    AgentMessage message;
    message.author = agentNamed(form.texts["as"], "as");
    if (message.author == Author::Human)
        message.person = Person{form.texts["name"], form.texts["picture"]};
    if (form.texts["name"].size() > maxNameLength)
        throw HttpError(400, "the name is too long");
    message.message = parseMessage(std::move(form));
    return message;
}

Upload parsePicture(const Request &request)
{
    Form form = parseForm(request);
    if (form.uploads.size() != 1 || form.uploads.front().bytes.empty())
        throw HttpError(400, "a picture is one file that is not empty");
    Upload &picture = form.uploads.front();
    if (std::find(pictureTypes.begin(), pictureTypes.end(), picture.mimeType) == pictureTypes.end())
        throw HttpError(400, "a picture has to be PNG, JPEG, GIF or WebP");
    return std::move(picture);
}

TicketChange parseTicketChange(const std::string &body)
{
    const JsonNode fields = JsonNode::parse(body);
    TicketChange change;
    if (const auto state = fields.optionalText("state"))
        change.state = oneOf({State::Open, State::Closed}, *state, "state");
    if (const auto assignee = fields.optionalText("assignee"))
        change.assignee = agentNamed(*assignee, "assignee");
    if (fields.has("automatic"))
        change.isAutomatic = fields.at("automatic").flag();
    // Assigning a ticket to a human turns automatic replies off, unless the request says otherwise.
    else if (change.assignee)
        change.isAutomatic = change.assignee == Author::Ai;
    return change;
}

CustomPush parsePush(const std::string &body)
{
    return {toText(JsonNode::parse(body).object().value())};
}

bool parseAutomatic(const std::string &body)
{
    return JsonNode::parse(body).at("automatic").flag();
}

} // namespace tolvane::backend
