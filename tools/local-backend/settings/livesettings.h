// SPDX-License-Identifier: MIT
#pragma once

#include "settings/settings.h"

#include <functional>
#include <memory>
#include <mutex>

namespace tolvane::backend {

class Store;

/// The current settings: those that the agents have saved, else those of the command line.
/// Thread-safe.
class LiveSettings
{
public:
    /// A file takes precedence over saved settings. Throws a StartError.
    LiveSettings(Store &store, const std::string &brandingPath, const std::string &schedulesPath);

    std::shared_ptr<const Settings> current() const;
    void save(const Branding &branding);
    void save(const Schedules &schedules);
    void saveRepliesAutomatically(bool replies);

private:
    void update(const char *name, const std::string &saved,
                const std::function<void(Settings &)> &apply);

    Store &m_store;
    mutable std::mutex m_mutex;
    std::shared_ptr<const Settings> m_current;
};

} // namespace tolvane::backend
