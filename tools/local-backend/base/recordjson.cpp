// SPDX-License-Identifier: MIT
#include "base/recordjson.h"

#include "base/text.h"

namespace tolvane::backend {

namespace {

void addUnlessEmpty(Json &object, const char *key, const std::string &text)
{
    if (!text.empty())
        object[key] = text;
}

Json toJson(const Person &person, const std::string &baseUrl)
{
    // Agents with the same name have the same id.
    constexpr std::size_t idLength = 16;
    Json sender = {{"id", "agent-" + sha256Hex(person.name).substr(0, idLength)}};
    addUnlessEmpty(sender, "name", person.name);
    if (!person.picture.empty())
        sender["profilePicture"] = attachmentUrl(person.picture, baseUrl);
    return sender;
}

Json senderOf(const Message &message, const std::string &baseUrl)
{
    if (message.person)
        return toJson(*message.person, baseUrl);
    if (message.author == Author::Customer)
        return {{"id", message.customerId}};
    if (message.author == Author::Ai)
        return {{"id", "ai-agent"}, {"name", "Tolvane Assistant"}};
    return {{"id", "agent-maya-lindqvist"},
            {"name", "Maya Lindqvist"},
            {"profilePicture", baseUrl + "/agents/maya.png"}};
}

} // namespace

Json toJson(const Message &message, const std::string &baseUrl)
{
    Json sender = senderOf(message, baseUrl);
    sender["type"] = nameOf(message.author);
    Json json = {{"id", message.id},
                 {"ticketId", message.ticketId},
                 {"sender", std::move(sender)},
                 {"content", message.content},
                 {"isRead", message.isRead},
                 {"timestamp", timestamp(message.at)}};
    for (const std::string &path : message.attachments)
        json["attachments"].push_back(attachmentUrl(path, baseUrl));
    return json;
}

Json toJson(const Ticket &ticket, const std::string &baseUrl)
{
    return {{"id", ticket.id},
            {"state", nameOf(ticket.state)},
            {"assignee", nameOf(ticket.assignee)},
            {"messages", toJson(ticket.messages, baseUrl)}};
}

Json toJson(const Preview &preview, const std::string &baseUrl)
{
    return {{"id", preview.id},
            {"state", nameOf(preview.state)},
            {"lastMessage", toJson(preview.lastMessage, baseUrl)}};
}

Json toJson(const AgentTicket &agentTicket, const std::string &baseUrl)
{
    Json customer = {{"id", agentTicket.customerId}};
    addUnlessEmpty(customer, "email", agentTicket.email);
    addUnlessEmpty(customer, "originalId", agentTicket.originalId);
    Json json = toJson(agentTicket.ticket, baseUrl);
    json["automatic"] = agentTicket.isAutomatic;
    json["takesPushes"] = !agentTicket.deviceToken.empty();
    json["customer"] = std::move(customer);
    addUnlessEmpty(json, "channel", agentTicket.channel);
    json["device"] = Json::parse(agentTicket.device);
    return json;
}

Json toJson(const Push &push, const std::string &baseUrl)
{
    if (const auto *const custom = std::get_if<CustomPush>(&push))
        return Json::parse(custom->payload);
    Json json = {{"source", "tolvane"}};
    if (const auto *const message = std::get_if<Message>(&push))
        json["message"] = toJson(*message, baseUrl);
    else
        json["ticketPreview"] = toJson(std::get<Preview>(push), baseUrl);
    return json;
}

std::string attachmentUrl(std::string_view path, const std::string &baseUrl)
{
    // The hash ends at the only slash and needs no encoding.
    const auto name = path.find('/') + 1;
    return baseUrl + "/attachments/" + std::string(path.substr(0, name)) +
           percentEncoded(path.substr(name));
}

} // namespace tolvane::backend
