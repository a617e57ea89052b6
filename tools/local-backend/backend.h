// SPDX-License-Identifier: MIT
#pragma once

#include "changes.h"
#include "desk.h"
#include "livesettings.h"
#include "pushes.h"
#include "store.h"

namespace tolvane::backend {

/// The services behind the routes, connected with each other.
struct Backend
{
    /// Throws a StartError for invalid settings.
    Backend(Database database, std::chrono::milliseconds replyDelay,
            const std::string &brandingPath = {}, const std::string &schedulesPath = {})
        : store(
              std::move(database),
              [this](const std::string &token, Push push) { pushes.send(token, std::move(push)); },
              [this](const std::string &ticketId) { changes.add(ticketId); })
        , settings(store, brandingPath, schedulesPath)
        , desk(store, settings, replyDelay)
    {
    }

    Changes changes;
    Pushes pushes;
    Store store;
    LiveSettings settings;
    Desk desk;
};

} // namespace tolvane::backend
