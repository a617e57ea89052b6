// SPDX-License-Identifier: MIT
#include "json.h"

#include "jsonwriter.h"
#include "text.h"

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
    constexpr std::size_t enough = 16;
    return {"agent-" + sha256Hex(person.name).substr(0, enough), person.name,
            person.picture.empty() ? std::string() : fileAddress(person.picture)};
}

void writeSender(Writer &writer, const Message &message, const Surroundings &surroundings)
{
    const Agent agent = message.person ? agentOf(*message.person)
                                       : agents.at(static_cast<std::size_t>(message.author));
    writer.open('{');
    writer.field("id", message.author == Author::Customer ? message.customerId : agent.id);
    writer.optionalField("name", agent.name);
    if (!agent.picture.empty())
        writer.field("profilePicture", surroundings.baseUrl + agent.picture);
    writer.field("type", nameOf(message.author));
    writer.close('}');
}

void writeAttachments(Writer &writer, const Message &message, const Surroundings &surroundings)
{
    writer.key("attachments");
    writer.open('[');
    for (const std::string &path : message.attachments)
        writer.value(attachmentUrl(path, surroundings));
    writer.close(']');
}

void write(Writer &writer, const Message &message, const Surroundings &surroundings)
{
    writer.open('{');
    writer.field("id", message.id);
    writer.field("ticketId", message.ticketId);
    writer.key("sender");
    writeSender(writer, message, surroundings);
    writer.field("content", message.content);
    writer.field("isRead", message.isRead);
    writer.field("timestamp", timestamp(message.at));
    if (!message.attachments.empty())
        writeAttachments(writer, message, surroundings);
    writer.close('}');
}

void write(Writer &writer, const std::vector<Message> &messages, const Surroundings &surroundings)
{
    writer.key("messages");
    writer.open('[');
    for (const Message &message : messages)
        write(writer, message, surroundings);
    writer.close(']');
}

void write(Writer &writer, const Preview &preview, const Surroundings &surroundings)
{
    writer.open('{');
    writer.field("id", preview.id);
    writer.field("state", nameOf(preview.state));
    writer.key("lastMessage");
    write(writer, preview.lastMessage, surroundings);
    writer.close('}');
}

void write(Writer &writer, const Case &theCase, const Surroundings &surroundings)
{
    writer.open('{');
    writer.field("id", theCase.ticket.id);
    writer.field("state", nameOf(theCase.ticket.state));
    writer.field("assignee", nameOf(theCase.ticket.assignee));
    writer.field("automatic", theCase.isAutomatic);
    writer.field("takesPushes", !theCase.deviceToken.empty());
    writer.key("customer");
    writer.open('{');
    writer.field("id", theCase.customerId);
    writer.optionalField("email", theCase.email);
    writer.optionalField("originalId", theCase.originalId);
    writer.close('}');
    writer.optionalField("channel", theCase.channel);
    writer.key("device");
    writer.raw(theCase.device);
    write(writer, theCase.ticket.messages, surroundings);
    writer.close('}');
}

std::string pushOf(std::string_view key, const auto &record, const Surroundings &surroundings)
{
    Writer writer;
    writer.open('{');
    writer.field("source", "tolvane");
    writer.key(key);
    write(writer, record, surroundings);
    writer.close('}');
    return writer.take();
}

std::string payloadOf(const Message &message, const Surroundings &surroundings)
{
    return pushOf("message", message, surroundings);
}

std::string payloadOf(const Preview &preview, const Surroundings &surroundings)
{
    return pushOf("ticketPreview", preview, surroundings);
}

std::string payloadOf(const HandmadePush &push, const Surroundings &)
{
    return push.payload;
}

} // namespace

std::string toJson(const Message &message, const Surroundings &surroundings)
{
    Writer writer;
    write(writer, message, surroundings);
    return writer.take();
}

std::string toJson(const Ticket &ticket, const Surroundings &surroundings)
{
    Writer writer;
    writer.open('{');
    writer.field("id", ticket.id);
    writer.field("state", nameOf(ticket.state));
    writer.field("assignee", nameOf(ticket.assignee));
    write(writer, ticket.messages, surroundings);
    writer.key("schedules");
    writer.raw(surroundings.schedules);
    writer.close('}');
    return writer.take();
}

std::string toJson(const std::vector<Preview> &previews, const Surroundings &surroundings)
{
    Writer writer;
    writer.open('[');
    for (const Preview &preview : previews)
        write(writer, preview, surroundings);
    writer.close(']');
    return writer.take();
}

std::string toJson(const Case &theCase, const Surroundings &surroundings)
{
    Writer writer;
    write(writer, theCase, surroundings);
    return writer.take();
}

std::string toJson(const std::vector<Case> &cases, const Surroundings &surroundings)
{
    Writer writer;
    writer.open('[');
    for (const Case &theCase : cases)
        write(writer, theCase, surroundings);
    writer.close(']');
    return writer.take();
}

std::string toJson(const Push &push, const Surroundings &surroundings)
{
    return std::visit([&](const auto &record) { return payloadOf(record, surroundings); }, push);
}

std::string toJson(const std::map<std::string, std::string> &texts)
{
    Writer writer;
    writer.open('{');
    for (const auto &[name, text] : texts)
        writer.field(name, text);
    writer.close('}');
    return writer.take();
}

std::string attachmentUrl(std::string_view path, const Surroundings &surroundings)
{
    return surroundings.baseUrl + fileAddress(path);
}

} // namespace tolvane::backend
