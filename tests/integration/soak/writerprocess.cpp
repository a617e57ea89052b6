// SPDX-License-Identifier: MIT
#include "writerprocess.h"

#include "testing/process.h"
#include "testing/waitfor.h"

#include <tolvane/tolvane.h>

#include <QtCore/QRandomGenerator>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>
#include <QtCore/QTimer>

namespace tolvane::soak {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

int runWriter()
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

void killWriter()
{
    test::Process writer(QCoreApplication::applicationFilePath(), {u"--writer"_s});
    // A random moment, to interrupt each step of a write at some time.
    test::wait(300ms + QRandomGenerator::global()->bounded(500) * 1ms);
    if (!writer.isRunning())
        throw std::runtime_error("the writer ended before it was killed");
    writer.kill();
}

QString customerOnDisk()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    const QSettings file(folder + u"/com.tolvane.sdk.ini"_s, QSettings::IniFormat);
    return file.value(u"customer.id"_s).toString();
}

} // namespace tolvane::soak
