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
    void theBatteryIsTheMachines_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QByteArray>("capacity");
        QTest::addColumn<State>("state");
        QTest::addColumn<float>("level");
        QTest::newRow("discharging") << "Discharging"_ba
                                     << "83"_ba << State::unplugged << 0.83F;
        QTest::newRow("charging") << "Charging"_ba
                                  << "0"_ba << State::charging << 0.0F;
        QTest::newRow("full") << "Full"_ba
                              << "100"_ba << State::full << 1.0F;
        QTest::newRow("plugged in, limited") << "Not charging"_ba
                                             << "80"_ba << State::unknown << 0.8F;
        QTest::newRow("unknown") << "Unknown"_ba
                                 << "much"_ba << State::unknown << -1.0F;
        QTest::newRow("no battery") << QByteArray() << QByteArray() << State::unknown << -1.0F;
    }

    void theBatteryIsTheMachines()
    {
        QFETCH(const QByteArray, status);
        QFETCH(const QByteArray, capacity);
        QFETCH(const State, state);
        QFETCH(const float, level);
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
