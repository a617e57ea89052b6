// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QSize>
#include <QtCore/QString>

#include <memory>
#include <optional>

namespace tolvane {

/// Gravity of a log line as the platform's log knows it.
enum class LogType { debug, info, error, fault };

/// Takes finished lines to the platform's log. Safe from any thread.
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

/// Lines to Qt's logging under the category `subsystem`.`category`. A fault is a critical message:
/// Qt's fatal one would end the host.
std::unique_ptr<LogSink> makeLoggingCategorySink(const QString &subsystem, const QString &category);

/// What the device says of itself.
class Device
{
public:
    enum class BatteryState { unknown, unplugged, charging, full };

    Device() = default;
    Device(const Device &) = delete;
    Device &operator=(const Device &) = delete;
    virtual ~Device() = default;

    virtual QString model() const = 0;
    virtual QString name() const = 0;
    virtual QString systemVersion() const = 0;
    /// 0 to 1; -1 when it is not known.
    virtual float batteryLevel() const = 0;
    virtual BatteryState batteryState() const = 0;
    /// In device-independent pixels, as the screen is turned now; 0 by 0 without a screen.
    virtual QSizeF screenSize() const = 0;
    virtual QString localeIdentifier() const = 0;
    virtual QString timeZoneIdentifier() const = 0;
};

/// The device that the process runs on. Screens are the user-interface library's to know.
std::unique_ptr<Device> makeSystemDevice();

/// What comes with the library and the host application: texts, and what the host says of itself.
class Bundle
{
public:
    Bundle() = default;
    Bundle(const Bundle &) = delete;
    Bundle &operator=(const Bundle &) = delete;
    virtual ~Bundle() = default;

    virtual std::optional<QString> hostVersion() const = 0;
    virtual std::optional<QString> hostBuild() const = 0;

    /// A text of the library in the language of the user interface. It returns the key itself where
    /// there is no such text, as do the others. All are safe from any thread.
    virtual QString string(const QString &key) const = 0;
    /// The same in the plural form for the count, which stands in it as a number.
    virtual QString string(const QString &key, qint64 count) const = 0;
    /// A text that is the host's: its translation of the key in the context "Tolvane".
    virtual QString hostString(const QString &key) const = 0;
    /// In which direction the library's texts are read, and its views are laid out.
    virtual Qt::LayoutDirection layoutDirection() const = 0;
};

/// The library's texts follow the system's languages and are loaded with the first that is asked
/// for. The version is QCoreApplication::applicationVersion(), the build the text in the
/// application object's dynamic property "applicationBuild".
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Bundle> makeApplicationBundle();

} // namespace tolvane
