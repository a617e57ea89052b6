// SPDX-License-Identifier: MIT
#include "platform/system/device.h"

#include "platform/system/userinterface.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QLocale>
#include <QtCore/QSysInfo>
#include <QtCore/QTimeZone>

#include <array>

namespace tolvane {

namespace {

QString readLine(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readLine(256)).trimmed();
}

/// The folder of the first battery that powers the machine; empty without one.
QString batteryFolder(const QString &sysfs)
{
    const QDir supplies(sysfs + QStringLiteral("/class/power_supply"));
    for (const QString &name : supplies.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QString folder = supplies.filePath(name);
        const bool isBattery =
            readLine(folder + QStringLiteral("/type")) == QLatin1String("Battery");
        // Batteries of peripherals, such as mice, have the scope "Device".
        if (isBattery && readLine(folder + QStringLiteral("/scope")) != QLatin1String("Device"))
            return folder;
    }
    return {};
}

struct BatteryWord
{
    const char *word; ///< of the kernel's power_supply class
    Device::BatteryState state;
};

constexpr std::array batteryWords = {
    BatteryWord{"Discharging", Device::BatteryState::unplugged},
    BatteryWord{"Charging", Device::BatteryState::charging},
    BatteryWord{"Full", Device::BatteryState::full},
};

class SystemDevice final : public Device
{
public:
    explicit SystemDevice(const QString &sysfs)
        : m_sysfs(sysfs)
        , m_model(readLine(sysfs + QStringLiteral("/devices/virtual/dmi/id/product_name")))
        , m_systemVersion(QSysInfo::productVersion())
    {
        if (m_model.isEmpty())
            m_model = QSysInfo::prettyProductName();
        if (m_systemVersion == QLatin1String("unknown"))
            m_systemVersion = QSysInfo::kernelVersion();
    }

    QString model() const override { return m_model; }
    QString name() const override { return QSysInfo::machineHostName(); }
    QString systemVersion() const override { return m_systemVersion; }

    float batteryLevel() const override
    {
        bool isNumber = false;
        const int percent =
            readLine(batteryFolder(m_sysfs) + QStringLiteral("/capacity")).toInt(&isNumber);
        return isNumber ? static_cast<float>(percent) / 100.0F : -1.0F;
    }

    BatteryState batteryState() const override
    {
        const QString word = readLine(batteryFolder(m_sysfs) + QStringLiteral("/status"));
        for (const BatteryWord &entry : batteryWords) {
            if (word == QLatin1String(entry.word))
                return entry.state;
        }
        return BatteryState::unknown;
    }

    QSizeF screenSize() const override
    {
        const auto size = userInterface().screenSize;
        return size ? size() : QSizeF(0, 0);
    }

    QString localeIdentifier() const override { return QLocale().name(); }

    QString timeZoneIdentifier() const override
    {
        return QString::fromUtf8(QTimeZone::systemTimeZoneId());
    }

private:
    const QString m_sysfs;
    // Read for every analytics event, and constant while the process runs.
    QString m_model;
    QString m_systemVersion;
};

} // namespace

std::unique_ptr<Device> makeSystemDevice(const QString &sysfs)
{
    return std::make_unique<SystemDevice>(sysfs);
}

} // namespace tolvane
