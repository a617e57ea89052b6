// SPDX-License-Identifier: MIT
#include "analytics/logger.h"

#include "base/sharedinstance.h"
#include "platform/platform.h"

#include <array>

namespace tolvane {

namespace {

struct LevelForm
{
    const char *word;
    LogType type;
};

// Indexed by LogLevel.
constexpr std::array levelForms = {
    LevelForm{"DEBUG", LogType::debug},    LevelForm{"INFO", LogType::info},
    LevelForm{"WARNING", LogType::error},  LevelForm{"ERROR", LogType::error},
    LevelForm{"CRITICAL", LogType::fault},
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
    , m_logger(platform().makeLogSink(subsystem, category))
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
    const LevelForm &form = levelForms.at(static_cast<std::size_t>(level));
    const QString time =
        m_locale.toString(platform().clock->now().toLocalTime(), QStringLiteral("HH:mm:ss.zzz"));
    const QString line = QLatin1Char('[') + m_category + QLatin1String("] [") +
                         QLatin1String(form.word) + QLatin1String("] [") + time +
                         QLatin1String("] ") + message;
    if (m_logger->isEnabled(form.type))
        m_logger->write(form.type, line);
}

} // namespace tolvane
