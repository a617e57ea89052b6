// SPDX-License-Identifier: MIT
#include "settings/settings.h"

#include "settings/settingsjson.h"

// Q_INIT_RESOURCE must be used outside of namespaces.
static void initializeAssets()
{
    Q_INIT_RESOURCE(tolvane_backend_assets);
}

namespace tolvane::backend {

namespace {

template <typename Parse>
auto load(Parse parse, const std::string &path, const char *flag, const char *builtIn)
{
    return path.empty() ? parse(asset(builtIn)) : parseFile(parse, path, flag);
}

} // namespace

Settings loadSettings(const std::string &brandingPath, const std::string &schedulesPath)
{
    Settings settings;
    settings.branding = load(parseBranding, brandingPath, "--branding", "branding.json");
    settings.schedules = load(parseSchedules, schedulesPath, "--schedules", "schedules.json");
    settings.portrait = asset("maya.png");
    return settings;
}

std::string asset(const std::string &name)
{
    initializeAssets();
    return readFile(QStringLiteral(":/tolvane-backend/") + QString::fromStdString(name));
}

} // namespace tolvane::backend
