// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>

#include <memory>

namespace tolvane {

/// Severity of a log line in the platform's log.
enum class LogType { debug, info, error, fault };

/// Writes formatted lines to the platform's log. Safe from any thread.
class LogSink
{
public:
    LogSink() = default;
    LogSink(const LogSink &) = delete;
    LogSink &operator=(const LogSink &) = delete;
    virtual ~LogSink() = default;

    virtual bool isEnabled(LogType type) const = 0;
    virtual void write(LogType type, const QString &line) = 0;
};

/// Writes to the Qt logging category `subsystem`.`category`. A fault is logged as critical, since a
/// fatal message would abort the host.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<LogSink> makeLoggingCategorySink(const QString &subsystem,
                                                                         const QString &category);

} // namespace tolvane
