// SPDX-License-Identifier: MIT
#include "platform/system/device.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;

namespace {

using State = Device::BatteryState;

void writeLine(const QString &path, const QByteArray &line)
{
    QFile file(path);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(line + '\n'), line.size() + 1);
}

} // namespace

class DeviceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theBatteryStateIsReadFromTheDevice()
    {
        checkBattery("Discharging", "83", State::unplugged, 0.83F);
        checkBattery("Charging", "0", State::charging, 0.0F);
        checkBattery("Full", "100", State::full, 1.0F);
        checkBattery("Not charging", "80", State::unknown, 0.8F); // Plugged in, and limited.
        checkBattery("Unknown", "much", State::unknown, -1.0F);
        checkBattery({}, {}, State::unknown, -1.0F); // There is no battery.
    }

private:
    static void checkBattery(const QByteArray &status, const QByteArray &capacity, State state,
                             float level)
    {
        const QTemporaryDir sysfs;
        const auto write = [&sysfs](const char *file, const QByteArray &line) {
            writeLine(sysfs.filePath(QString::fromLatin1(file)), line);
        };
        write("devices/virtual/dmi/id/product_name", "Model 9");
        write("class/power_supply/AC/type", "Mains");
        write("class/power_supply/A-mouse/type", "Battery");
        write("class/power_supply/A-mouse/scope", "Device");
        write("class/power_supply/A-mouse/status", "Full");
        write("class/power_supply/A-mouse/capacity", "7");
        if (!status.isEmpty()) {
            write("class/power_supply/BAT0/type", "Battery");
            write("class/power_supply/BAT0/status", status);
            write("class/power_supply/BAT0/capacity", capacity);
        }
        const std::unique_ptr<Device> device = makeSystemDevice(sysfs.path());
        QCOMPARE(device->batteryState(), state);
        QCOMPARE(device->batteryLevel(), level);
        QCOMPARE(device->model(), u"Model 9"_s);
    }
};

QTEST_GUILESS_MAIN(DeviceTest)
#include "tst_device.moc"
