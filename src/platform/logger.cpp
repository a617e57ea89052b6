// SPDX-License-Identifier: MIT
#include "platform/logger.h"

#include "base/sharedinstance.h"
#include "platform/platform.h"

#include <array>

namespace tolvane {

namespace {

struct LevelFormat
{
    const char *name;
    LogType type;
};

// Indexed by LogLevel.
constexpr std::array levelFormats = {
    LevelFormat{"DEBUG", LogType::debug},    LevelFormat{"INFO", LogType::info},
    LevelFormat{"WARNING", LogType::error},  LevelFormat{"ERROR", LogType::error},
    LevelFormat{"CRITICAL", LogType::fault},
};

} // namespace

Logger &Logger::shared()
{
    return *sharedInstance<Logger>();
}

Logger::Logger()
    : Logger(QStringLiteral("com.tolvane.ios"), QStringLiteral("Tolvane"))
{
}

Logger::Logger(const QString &subsystem, const QString &category)
    : m_category(category)
    , m_sink(platform().makeLogSink(subsystem, category))
{
}

void Logger::log(LogLevel level, const QString &message)
{
    if (m_enabled)
        write(level, message);
}

void Logger::reportMisuse(const QString &message)
{
    write(LogLevel::critical, message);
}

void Logger::write(LogLevel level, const QString &message)
{
    const LevelFormat &format = levelFormats.at(static_cast<std::size_t>(level));
    const QString time =
        m_locale.toString(platform().clock->now().toLocalTime(), QStringLiteral("HH:mm:ss.zzz"));
    const QString line = QLatin1Char('[') + m_category + QLatin1String("] [") +
                         QLatin1String(format.name) + QLatin1String("] [") + time +
                         QLatin1String("] ") + message;
    if (m_sink->isEnabled(format.type))
        m_sink->write(format.type, line);
}

} // namespace tolvane
