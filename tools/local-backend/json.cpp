// SPDX-License-Identifier: MIT
#include "json.h"

#include "text.h"

#include <array>
#include <cstdio>

namespace tolvane::backend {

namespace {

struct Agent
{
    std::string_view id;
    std::string_view name;
    /// Below the base address; empty when there is none.
    std::string_view picture;
};

// Indexed by Author, the customer's place left empty.
constexpr std::array<Agent, 3> agents = {
    Agent{},
    Agent{"ai-agent", "Tolvane Assistant", ""},
    Agent{"agent-maya-lindqvist", "Maya Lindqvist", "/agents/maya.png"},
};

// QJsonDocument's tree costs more than the query behind it for a conversation of thousands of
// messages, so that records are written straight into the text.
class Writer
{
public:
    void open(char bracket)
    {
        separate();
        m_text += bracket;
        m_first = true;
    }

    void close(char bracket)
    {
        m_text += bracket;
        m_first = false;
    }

    void key(std::string_view name)
    {
        value(name);
        m_text += ':';
        m_first = true;
    }

    void value(std::string_view text)
    {
        separate();
        m_text += '"';
        for (const char character : text)
            escape(character);
        m_text += '"';
    }

    void raw(std::string_view json)
    {
        separate();
        m_text += json;
    }

    void field(std::string_view name, std::string_view text)
    {
        key(name);
        value(text);
    }

    void optionalField(std::string_view name, std::string_view text)
    {
        if (!text.empty())
            field(name, text);
    }

    std::string take() { return std::move(m_text); }

private:
    void separate()
    {
        if (!m_first)
            m_text += ',';
        m_first = false;
    }

    void escape(char character)
    {
        if (character == '"' || character == '\\') {
            m_text += {'\\', character};
        } else if (static_cast<unsigned char>(character) < 0x20) {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned>(character));
            m_text += code.data();
        } else {
            m_text += character;
        }
    }

    std::string m_text;
    bool m_first = true;
};

Agent agentOf(const Message &message)
{
    if (message.signature)
        return {message.signature->id, message.signature->name, message.signature->picture};
    return agents.at(static_cast<std::size_t>(message.author));
}

void writeSender(Writer &writer, const Message &message, const Surroundings &surroundings)
{
    const Agent agent = agentOf(message);
    writer.open('{');
    writer.field("id", message.author == Author::Customer ? message.customerId : agent.id);
    writer.optionalField("name", agent.name);
    if (!agent.picture.empty())
        writer.field("profilePicture", surroundings.baseUrl + std::string(agent.picture));
    writer.field("type", nameOf(message.author));
    writer.close('}');
}

void writeAttachments(Writer &writer, const Message &message, const Surroundings &surroundings)
{
    writer.key("attachments");
    writer.open('[');
    for (const std::string &path : message.attachments) {
        // The hash, which ends at the only slash, needs no encoding.
        const auto slash = path.find('/') + 1;
        writer.value(surroundings.baseUrl + "/attachments/" + path.substr(0, slash) +
                     percentEncoded(std::string_view(path).substr(slash)));
    }
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
    writer.key("isRead");
    writer.raw(message.isRead ? "true" : "false");
    writer.field("timestamp", timestamp(message.at));
    if (!message.attachments.empty())
        writeAttachments(writer, message, surroundings);
    writer.close('}');
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

// Indexed by what a push holds.
constexpr std::array<std::string_view, 2> pushKeys = {"message", "ticketPreview"};

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
    writer.key("messages");
    writer.open('[');
    for (const Message &message : ticket.messages)
        write(writer, message, surroundings);
    writer.close(']');
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

std::string toJson(const Push &push, const Surroundings &surroundings)
{
    Writer writer;
    writer.open('{');
    writer.field("source", "tolvane");
    writer.key(pushKeys.at(push.index()));
    std::visit([&](const auto &record) { write(writer, record, surroundings); }, push);
    writer.close('}');
    return writer.take();
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

} // namespace tolvane::backend
