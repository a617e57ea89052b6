// SPDX-License-Identifier: MIT
#pragma once

#include "settings/branding.h"
#include "settings/schedules.h"

namespace tolvane::backend {

class Store;

/// The settings that apply to all customers.
struct Settings
{
    Branding branding;
    Schedules schedules;
    /// Whether the scripted agents reply.
    bool repliesAutomatically = true;
};

/// The current settings: those that the agents have saved, else those of the command line, else the
/// built-in ones.
class LiveSettings
{
public:
    /// A file takes precedence over saved settings. Throws a StartError with the source of an
    /// invalid setting and the reason.
    LiveSettings(Store &store, const std::string &brandingPath, const std::string &schedulesPath);

    const Settings &current() const { return m_current; }
    void saveBranding(Branding branding);
    void saveSchedules(Schedules schedules);
    void saveRepliesAutomatically(bool replies);

private:
    template <typename Value>
    void save(Value Settings::*setting, const char *name, Value value);

    Store &m_store;
    Settings m_current;
};

/// Returns the content of a resource below ":/tolvane-backend/".
std::string asset(const std::string &name);
bool hasAsset(const std::string &name);

} // namespace tolvane::backend
