// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QSize>
#include <QtCore/QString>

#include <memory>

namespace tolvane {

/// Properties of the device.
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
    /// 0 to 1; -1 if unknown.
    virtual float batteryLevel() const = 0;
    virtual BatteryState batteryState() const = 0;
    /// In device-independent pixels, in the current orientation; 0 by 0 without a screen.
    virtual QSizeF screenSize() const = 0;
    virtual QString localeIdentifier() const = 0;
    virtual QString timeZoneIdentifier() const = 0;
};

/// The device that the process runs on. The size of the screen comes from the library of views,
/// model and battery from the kernel's file system.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Device>
makeSystemDevice(const QString &sysfs = QStringLiteral("/sys"));

} // namespace tolvane
