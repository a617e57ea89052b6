// SPDX-License-Identifier: MIT
#include "victim.h"

#include <tolvane/tolvane.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>
#include <QtCore/QTimer>
#include <QtTest/QTest>

#include <chrono>

namespace tolvane::soak {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

int runVictim()
{
    Tolvane::initialize(u"soak-key"_s);
    QTimer timer;
    int count = 0;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&count] {
        ++count;
        Tolvane::updateCustomer(u"%1@example.com"_s.arg(count), u"host-%1"_s.arg(count));
    });
    timer.start(3ms);
    return QCoreApplication::exec();
}

void killAVictim()
{
    QProcess victim;
    victim.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    victim.start(QCoreApplication::applicationFilePath(), {u"--victim"_s});
    QTest::qWait(300 + QRandomGenerator::global()->bounded(500));
    if (victim.state() != QProcess::Running)
        qFatal("The victim has ended by itself");
    victim.kill();
    victim.waitForFinished();
}

QString customerOnDisk()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    const QSettings file(folder + u"/com.tolvane.sdk.ini"_s, QSettings::IniFormat);
    return file.value(u"customer.id"_s).toString();
}

} // namespace tolvane::soak
