// SPDX-License-Identifier: MIT
#include "page/agentrequests.h"

#include "api/requests.h"
#include "base/errors.h"
#include "base/jsonnode.h"

#include <algorithm>
#include <array>

namespace tolvane::backend {

namespace {

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

} // namespace

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
