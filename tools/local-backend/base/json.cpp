// SPDX-License-Identifier: MIT
#include "base/json.h"

#include "base/jsonwriter.h"
#include "base/text.h"

#include <array>

namespace tolvane::backend {

namespace {

struct Agent
{
    std::string id;
    std::string name;
    /// Relative to the base URL; empty for an agent without a picture.
    std::string picture;
};

// Indexed by Author. The customer's entry is unused.
const std::array<Agent, 3> agents = {
    Agent{},
    Agent{"ai-agent", "Tolvane Assistant", ""},
    Agent{"agent-maya-lindqvist", "Maya Lindqvist", "/agents/maya.png"},
};

std::string fileAddress(std::string_view path)
{
    // The hash ends at the only slash and needs no encoding.
    const auto slash = path.find('/') + 1;
    return "/attachments/" + std::string(path.substr(0, slash)) +
           percentEncoded(path.substr(slash));
}

// Agents with the same name have the same id.
Agent agentOf(const Person &person)
{
    constexpr std::size_t idLength = 16;
    return {"agent-" + sha256Hex(person.name).substr(0, idLength), person.name,
            person.picture.empty() ? std::string() : fileAddress(person.picture)};
}

void writeSender(JsonWriter &writer, const Message &message, const RenderContext &context)
{
    const Agent agent = message.person ? agentOf(*message.person)
                                       : agents.at(static_cast<std::size_t>(message.author));
    writer.open('{');
    writer.field("id", message.author == Author::Customer ? message.customerId : agent.id);
    writer.optionalField("name", agent.name);
    if (!agent.picture.empty())
        writer.field("profilePicture", context.baseUrl + agent.picture);
    writer.field("type", nameOf(message.author));
    writer.close('}');
}

void writeAttachments(JsonWriter &writer, const Message &message, const RenderContext &context)
{
    writer.key("attachments");
    writer.open('[');
    for (const std::string &path : message.attachments)
        writer.value(attachmentUrl(path, context));
    writer.close(']');
}

void write(JsonWriter &writer, const Message &message, const RenderContext &context)
{
    writer.open('{');
    writer.field("id", message.id);
    writer.field("ticketId", message.ticketId);
    writer.key("sender");
    writeSender(writer, message, context);
    writer.field("content", message.content);
    writer.field("isRead", message.isRead);
    writer.field("timestamp", timestamp(message.at));
    if (!message.attachments.empty())
        writeAttachments(writer, message, context);
    writer.close('}');
}

void write(JsonWriter &writer, const std::vector<Message> &messages, const RenderContext &context)
{
    writer.key("messages");
    writer.open('[');
    for (const Message &message : messages)
        write(writer, message, context);
    writer.close(']');
}

void write(JsonWriter &writer, const Preview &preview, const RenderContext &context)
{
    writer.open('{');
    writer.field("id", preview.id);
    writer.field("state", nameOf(preview.state));
    writer.key("lastMessage");
    write(writer, preview.lastMessage, context);
    writer.close('}');
}

void write(JsonWriter &writer, const AgentTicket &agentTicket, const RenderContext &context)
{
    writer.open('{');
    writer.field("id", agentTicket.ticket.id);
    writer.field("state", nameOf(agentTicket.ticket.state));
    writer.field("assignee", nameOf(agentTicket.ticket.assignee));
    writer.field("automatic", agentTicket.isAutomatic);
    writer.field("takesPushes", !agentTicket.deviceToken.empty());
    writer.key("customer");
    writer.open('{');
    writer.field("id", agentTicket.customerId);
    writer.optionalField("email", agentTicket.email);
    writer.optionalField("originalId", agentTicket.originalId);
    writer.close('}');
    writer.optionalField("channel", agentTicket.channel);
    writer.key("device");
    writer.raw(agentTicket.device);
    write(writer, agentTicket.ticket.messages, context);
    writer.close('}');
}

std::string pushOf(std::string_view key, const auto &record, const RenderContext &context)
{
    JsonWriter writer;
    writer.open('{');
    writer.field("source", "tolvane");
    writer.key(key);
    write(writer, record, context);
    writer.close('}');
    return writer.take();
}

std::string payloadOf(const Message &message, const RenderContext &context)
{
    return pushOf("message", message, context);
}

std::string payloadOf(const Preview &preview, const RenderContext &context)
{
    return pushOf("ticketPreview", preview, context);
}

std::string payloadOf(const CustomPush &push, const RenderContext &)
{
    return push.payload;
}

} // namespace

std::string toJson(const Message &message, const RenderContext &context)
{
    JsonWriter writer;
    write(writer, message, context);
    return writer.take();
}

std::string toJson(const Ticket &ticket, const RenderContext &context)
{
    JsonWriter writer;
    writer.open('{');
    writer.field("id", ticket.id);
    writer.field("state", nameOf(ticket.state));
    writer.field("assignee", nameOf(ticket.assignee));
    write(writer, ticket.messages, context);
    writer.key("schedules");
    writer.raw(context.schedules);
    writer.close('}');
    return writer.take();
}

std::string toJson(const std::vector<Preview> &previews, const RenderContext &context)
{
    JsonWriter writer;
    writer.open('[');
    for (const Preview &preview : previews)
        write(writer, preview, context);
    writer.close(']');
    return writer.take();
}

std::string toJson(const AgentTicket &ticket, const RenderContext &context)
{
    JsonWriter writer;
    write(writer, ticket, context);
    return writer.take();
}

std::string toJson(const std::vector<AgentTicket> &tickets, const RenderContext &context)
{
    JsonWriter writer;
    writer.open('[');
    for (const AgentTicket &ticket : tickets)
        write(writer, ticket, context);
    writer.close(']');
    return writer.take();
}

std::string toJson(const Push &push, const RenderContext &context)
{
    return std::visit([&](const auto &record) { return payloadOf(record, context); }, push);
}

std::string toJson(const std::map<std::string, std::string> &texts)
{
    JsonWriter writer;
    writer.open('{');
    for (const auto &[name, text] : texts)
        writer.field(name, text);
    writer.close('}');
    return writer.take();
}

std::string attachmentUrl(std::string_view path, const RenderContext &context)
{
    return context.baseUrl + fileAddress(path);
}

} // namespace tolvane::backend
