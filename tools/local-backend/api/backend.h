// SPDX-License-Identifier: MIT
#pragma once

#include "agents/replyscheduler.h"
#include "data/store.h"
#include "settings/settings.h"
#include "streams/changenotifier.h"
#include "streams/pushservice.h"

namespace tolvane::backend {

/// The services behind the routes, connected with each other.
struct Backend
{
    /// Throws a StartError for invalid settings.
    Backend(Database database, std::chrono::milliseconds replyDelay,
            const std::string &brandingPath = {}, const std::string &schedulesPath = {})
        : store(
              std::move(database),
              [this](const std::string &token, Push push) {
                  pushService.send(token, std::move(push));
              },
              [this](const std::string &ticketId) {
                  changeNotifier.notify(ticketId);
                  replyScheduler.wake();
              })
        , settings(store, brandingPath, schedulesPath)
        , replyScheduler(store, settings, replyDelay)
    {
    }

    ChangeNotifier changeNotifier;
    PushService pushService;
    Store store;
    LiveSettings settings;
    ReplyScheduler replyScheduler;
};

} // namespace tolvane::backend
