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

/// Who an agent is that is none of the backend's own.
struct Signature
{
    std::string id;
    std::string name;
    /// Below the base address; empty when there is none.
    std::string picture;
};

struct Message
{
    std::string id;
    std::string ticketId;
    /// Empty for an agent, whose identity follows from `author` where there is no signature.
    std::string customerId;
    Author author = Author::Customer;
    std::optional<Signature> signature;
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

/// What a customer's device is told: a message of an agent's, or a ticket whose state has changed.
using Push = std::variant<Message, Preview>;

struct StoredFile
{
    std::string mimeType;
    std::string bytes;
};

} // namespace tolvane::backend
