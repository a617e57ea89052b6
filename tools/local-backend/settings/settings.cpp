// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include "base/inputfile.h"
#include "data/store.h"

// Q_INIT_RESOURCE must be used outside of namespaces.
static void initializeAssets()
{
    Q_INIT_RESOURCE(tolvane_backend_assets);
}

namespace tolvane::backend {

namespace {

constexpr const char *branding = "branding";
constexpr const char *schedules = "schedules";
constexpr const char *repliesAutomatically = "repliesAutomatically";

template <typename Parse>
auto load(const char *name, Store &store, Parse parse, const std::string &path)
{
    if (!path.empty())
        return parseFile(parse, path, ("--" + std::string(name)).c_str());
    const std::optional<std::string> saved = store.setting(name);
    try {
        return parse(saved ? *saved : asset(std::string(name) + ".json"));
    } catch (const InputError &error) {
        throw StartError(std::string("the database's setting '") + name + "' " + error.what());
    }
}

} // namespace

LiveSettings::LiveSettings(Store &store, const std::string &brandingPath,
                           const std::string &schedulesPath)
    : m_store(store)
{
    Settings settings;
    settings.branding = load(branding, store, parseBranding, brandingPath);
    settings.schedules = load(schedules, store, parseSchedules, schedulesPath);
    settings.repliesAutomatically = store.setting(repliesAutomatically) != toText(false);
    m_current = std::make_shared<const Settings>(std::move(settings));
}

std::shared_ptr<const Settings> LiveSettings::current() const
{
    const std::lock_guard lock(m_mutex);
    return m_current;
}

void LiveSettings::saveBranding(Branding value)
{
    save(&Settings::branding, branding, std::move(value));
}

void LiveSettings::saveSchedules(Schedules value)
{
    save(&Settings::schedules, schedules, std::move(value));
}

void LiveSettings::saveRepliesAutomatically(bool replies)
{
    save(&Settings::repliesAutomatically, repliesAutomatically, replies);
}

template <typename Value>
void LiveSettings::save(Value Settings::*setting, const char *name, Value value)
{
    const std::lock_guard lock(m_mutex);
    m_store.saveSetting(name, toText(value));
    auto settings = std::make_shared<Settings>(*m_current);
    (*settings).*setting = std::move(value);
    m_current = std::move(settings);
}

std::string asset(const std::string &name)
{
    initializeAssets();
    return readFile(QStringLiteral(":/tolvane-backend/") + QString::fromStdString(name));
}

} // namespace tolvane::backend
