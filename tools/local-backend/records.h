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

/// The name on the wire, which is also the one in the database.
std::string_view nameOf(Author author);
std::string_view nameOf(State state);
Author authorNamed(std::string_view name);
State stateNamed(std::string_view name);

/// What became known of a customer; what is absent stays as it is.
struct CustomerUpdate
{
    std::optional<std::string> email;
    std::optional<std::string> originalId;
    std::optional<std::string> deviceToken;
};

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

/// An agent who writes by their own hand, in place of the scripted one.
struct Person
{
    /// May be empty, for an agent without a name.
    std::string name;
    /// "HASH/NAME" as of an attachment, or empty.
    std::string picture;
};

struct Message
{
    std::string id;
    std::string ticketId;
    /// Empty for an agent, whose identity is that of `person`, else follows from `author`.
    std::string customerId;
    Author author = Author::Customer;
    std::optional<Person> person;
    std::string content;
    bool isRead = false;
    Instant at = 0;
    /// Each "HASH/NAME", below the route of the attachments.
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

/// A ticket as the agents see it.
struct Case
{
    /// In a list of cases, with its newest message only.
    Ticket ticket;
    /// Whether the scripted agents answer in it.
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

/// What an agent does to a ticket; what is absent stays as it is.
struct TicketChange
{
    std::optional<State> state;
    std::optional<Author> assignee;
    std::optional<bool> isAutomatic;
};

/// A payload of an agent's own making, a JSON object on one line.
struct HandmadePush
{
    std::string payload;
};

/// What a customer's device is told: a message of an agent's, or a ticket whose state has changed.
using Push = std::variant<Message, Preview, HandmadePush>;

struct StoredFile
{
    std::string mimeType;
    std::string bytes;
};

} // namespace tolvane::backend
