// SPDX-License-Identifier: MIT
#include "settings.h"

#include "errors.h"

#include <QtCore/QFile>

// At namespace scope, as the macro asks for.
static void initializeAssets()
{
    Q_INIT_RESOURCE(tolvane_backend_assets);
}

namespace tolvane::backend {

namespace {

std::string contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw SettingsError("cannot be read (" + file.errorString().toStdString() +
                            "); check its name and rights");
    return file.readAll().toStdString();
}

template <typename Parse>
auto load(Parse parse, const std::string &path, const char *flag, const char *builtIn)
{
    if (path.empty())
        return parse(asset(builtIn));
    try {
        return parse(contentOf(QString::fromStdString(path)));
    } catch (const SettingsError &error) {
        throw StartError("the file '" + path + "' of " + flag + ' ' + error.what());
    }
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
    return contentOf(QStringLiteral(":/tolvane-backend/") + QString::fromStdString(name));
}

} // namespace tolvane::backend
