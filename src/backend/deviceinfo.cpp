// SPDX-License-Identifier: MIT
#include "backend/wire/records.h"
#include "platform/platform.h"

#include <array>

namespace tolvane {

namespace {

const QString unknown = QStringLiteral("Unknown");

// Indexed by Device::BatteryState.
constexpr std::array batteryTexts = {"Unknown", "Unplugged", "Charging", "Full"};

} // namespace

DeviceInfoDto DeviceInfoDto::current()
{
    const Device &device = *platform().device;
    const Bundle &bundle = *platform().bundle;
    const QSizeF screen = device.screenSize();
    return {
        .deviceModel = device.model(),
        .deviceName = device.name(),
        .osVersion = device.systemVersion(),
        .appVersion = bundle.hostVersion().value_or(unknown),
        .appBuild = bundle.hostBuild().value_or(unknown),
        .screenWidth = static_cast<int>(screen.width()),
        .screenHeight = static_cast<int>(screen.height()),
        .batteryLevel = device.batteryLevel(),
        .batteryState =
            QString::fromLatin1(batteryTexts.at(static_cast<std::size_t>(device.batteryState()))),
        .locale = device.localeIdentifier(),
        .timezone = device.timeZoneIdentifier(),
    };
}

} // namespace tolvane
