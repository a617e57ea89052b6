// SPDX-License-Identifier: MIT
#include "settings/livesettings.h"

#include "base/errors.h"
#include "data/store.h"

namespace tolvane::backend {

namespace {

constexpr const char *brandingName = "branding";
constexpr const char *schedulesName = "schedules";
constexpr const char *automaticName = "repliesAutomatically";
constexpr const char *no = "no";
constexpr const char *yes = "yes";

template <typename Value, typename Parse>
void restore(Value &value, Store &store, const char *name, Parse parse)
{
    try {
        if (const auto saved = store.setting(name))
            value = parse(*saved);
    } catch (const SettingsError &error) {
        throw StartError(std::string("the database's setting '") + name + "' " + error.what());
    }
}

} // namespace

LiveSettings::LiveSettings(Store &store, const std::string &brandingPath,
                           const std::string &schedulesPath)
    : m_store(store)
{
    Settings settings = loadSettings(brandingPath, schedulesPath);
    if (brandingPath.empty())
        restore(settings.branding, store, brandingName, parseBranding);
    if (schedulesPath.empty())
        restore(settings.schedules, store, schedulesName, parseSchedules);
    restore(settings.repliesAutomatically, store, automaticName,
            [](const std::string &saved) { return saved != no; });
    m_current = std::make_shared<const Settings>(std::move(settings));
}

std::shared_ptr<const Settings> LiveSettings::current() const
{
    const std::lock_guard lock(m_mutex);
    return m_current;
}

void LiveSettings::save(const Branding &branding)
{
    update(brandingName, branding.json, [&](Settings &settings) { settings.branding = branding; });
}

void LiveSettings::save(const Schedules &schedules)
{
    update(schedulesName, schedules.json,
           [&](Settings &settings) { settings.schedules = schedules; });
}

void LiveSettings::saveRepliesAutomatically(bool replies)
{
    update(automaticName, replies ? yes : no,
           [replies](Settings &settings) { settings.repliesAutomatically = replies; });
}

void LiveSettings::update(const char *name, const std::string &saved,
                          const std::function<void(Settings &)> &apply)
{
    const std::lock_guard lock(m_mutex);
    m_store.saveSetting(name, saved);
    auto settings = std::make_shared<Settings>(*m_current);
    apply(*settings);
    m_current = std::move(settings);
}

} // namespace tolvane::backend
