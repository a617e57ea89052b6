// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include "base/inputfile.h"
#include "data/store.h"

#include <QtCore/QFile>

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

QString pathOf(const std::string &asset)
{
    initializeAssets();
    return QStringLiteral(":/tolvane-backend/") + QString::fromStdString(asset);
}

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
    m_current.branding = load(branding, store, parseBranding, brandingPath);
    m_current.schedules = load(schedules, store, parseSchedules, schedulesPath);
    m_current.repliesAutomatically = store.setting(repliesAutomatically) != toText(false);
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
    m_store.saveSetting(name, toText(value));
    m_current.*setting = std::move(value);
}

std::string asset(const std::string &name)
{
    return readFile(pathOf(name));
}

bool hasAsset(const std::string &name)
{
    return QFile::exists(pathOf(name));
}

} // namespace tolvane::backend
