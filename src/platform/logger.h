// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/system/logsink.h"

#include <QtCore/QLocale>
#include <QtCore/QString>

#include <atomic>
#include <memory>

namespace tolvane {

enum class LogLevel { debug, info, warning, error, critical };

/// The library's log, off by default, with one line per message. Safe from any thread.
class TOLVANE_PRIVATE_EXPORT Logger
{
public:
    static Logger &shared();

    Logger();
    Logger(const QString &subsystem, const QString &category);

    void setEnabled(bool enabled) { m_enabled = enabled; }
    /// For messages that are expensive to format.
    bool isEnabled() const { return m_enabled; }

    void log(LogLevel level, const QString &message);

    /// Logs a mistake of the host at `critical`, also while logging is off.
    void reportMisuse(const QString &message);

private:
    void write(LogLevel level, const QString &message);

    const QString m_category;
    const QLocale m_locale;
    const std::unique_ptr<LogSink> m_sink;
    std::atomic<bool> m_enabled = false;
};

} // namespace tolvane
