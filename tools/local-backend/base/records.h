// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tolvane::backend {

/// Milliseconds since 1970, UTC.
using Instant = std::int64_t;

enum class Author { Customer, Ai, Human };
enum class State { Open, Closed };

/// The name in JSON and in the database.
std::string_view nameOf(Author author);
std::string_view nameOf(State state);
Author authorNamed(std::string_view name);
State stateNamed(std::string_view name);

/// New data of a customer. Fields without a value stay unchanged.
struct CustomerUpdate
{
    std::optional<std::string> email;
    std::optional<std::string> originalId;
    std::optional<std::string> deviceToken;
};

/// "HASH/NAME", the key of a stored file.
std::string filePath(std::string_view hash, std::string_view name);

struct Upload
{
    std::string fileName;
    std::string mimeType;
    std::string bytes;
};

struct NewMessage
{
    std::string content;
    std::vector<Upload> uploads;
};

struct NewTicket
{
    std::string channel;
    std::map<std::string, std::string> device;
    NewMessage message;
};

/// A person who replies as a human agent, in place of the scripted one.
struct Person
{
    /// May be empty.
    std::string name;
    /// "HASH/NAME" like an attachment, or empty.
    std::string picture;
};

struct Message
{
    std::string id;
    std::string ticketId;
    /// Empty for agents: their identity is `person`, or follows from `author`.
    std::string customerId;
    Author author = Author::Customer;
    std::optional<Person> person;
    std::string content;
    bool isRead = false;
    Instant at = 0;
    /// "HASH/NAME" each, relative to the route of the attachments.
    std::vector<std::string> attachments;
};

struct Ticket
{
    std::string id;
    State state = State::Open;
    Author assignee = Author::Ai;
    std::vector<Message> messages;
};

struct Preview
{
    std::string id;
    State state = State::Open;
    Message lastMessage;
};

/// A ticket with the fields that agents need.
struct AgentTicket
{
    /// In lists, with the newest message only.
    Ticket ticket;
    /// Whether the scripted agents reply in the ticket.
    bool isAutomatic = true;
    std::string customerId;
    std::string email;
    std::string originalId;
    std::string deviceToken;
    std::string channel;
    /// A JSON object of texts.
    std::string device;
};

struct AgentMessage
{
    Author author = Author::Human;
    std::optional<Person> person;
    NewMessage message;
};

/// An agent's change of a ticket. Fields without a value stay unchanged.
struct TicketChange
{
    std::optional<State> state;
    std::optional<Author> assignee;
    std::optional<bool> isAutomatic;
};

/// A payload that an agent has written: a JSON object on one line.
struct CustomPush
{
    std::string payload;
};

/// A push for a customer's device: an agent's message, a ticket whose state has changed, or a
/// payload that an agent has written.
using Push = std::variant<Message, Preview, CustomPush>;

struct StoredFile
{
    std::string mimeType;
    std::string bytes;
};

} // namespace tolvane::backend
