// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"

#include <optional>
#include <string>
#include <vector>

namespace tolvane::backend {

/// A message of a past conversation, without an id and a ticket.
struct SeededMessage
{
    Message message;
    std::vector<Upload> attachments;
};

struct SeededConversation
{
    State state = State::Open;
    std::vector<SeededMessage> messages;
    /// The delay of the reply to the last message, if one is pending.
    std::optional<double> secondsUntilReply;
};

struct Seed
{
    std::string customer;
    /// Empty when the customer has no device.
    std::string deviceToken;
    /// The pictures of the people, and pictures that are not attached to a message.
    std::vector<Upload> pictures;
    std::vector<SeededConversation> conversations;
};

/// Parses a seed, a JSON file like
///
///     {
///       "customer": "01kb5j7hq2r5v8z1d4g6k9m3pt",
///       "deviceToken": "00ff",                                  optional
///       "pictures": ["logo.png"],                               optional
///       "people": {                                             optional
///         "nora": {"name": "Nora Berg", "picture": "nora.png"}  the picture is optional
///       },
///       "conversations": [
///         {
///           "state": "open",                                    or "closed"
///           "secondsUntilReply": 5,                            optional
///           "messages": [                                       oldest first
///             {"from": "customer", "minutesAgo": 12, "text": "Hello", "attachments":
///             ["tent.jpg"]},
///             {"from": "nora", "minutesAgo": 3, "text": "Hello!", "unread": true}
///           ]
///         }
///       ]
///     }
///
/// A message is from "customer", "ai" or one of the people. File paths are relative to the seed's
/// folder. Throws a StartError with the file, the position in it and the reason.
Seed readSeed(const std::string &path);

} // namespace tolvane::backend
