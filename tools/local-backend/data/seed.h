// SPDX-License-Identifier: MIT
#pragma once

#include "data/database.h"

namespace tolvane::backend {

/// Adds the conversations of a seed to the database, unless the customer has conversations already.
/// A seed is a JSON file like
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
///           "secondsUntilReply": 5,                             optional
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
/// folder. Throws a StartError with the file, the position in it and the reason; the database then
/// stays unchanged.
void loadSeed(const std::string &path, Database &database);

} // namespace tolvane::backend
