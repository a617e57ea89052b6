// SPDX-License-Identifier: MIT
#include "testing/process.h"
#include "testing/scriptedserver.h"
#include "testing/waitfor.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane::test;

class ShutdownTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsDuringWork_data()
    {
        QTest::addColumn<QString>("busy");
        QTest::addColumn<QString>("way");
        for (const char *busy : {"request", "sleep", "work", "long work", "polling"}) {
            for (const char *way : {"return", "exit"}) {
                QTest::addRow("%s, %s", busy, way)
                    << QString::fromLatin1(busy) << QString::fromLatin1(way);
            }
        }
    }

    void endsDuringWork()
    {
        QFETCH(const QString, busy);
        QFETCH(const QString, way);
        ScriptedServer stalling;
        stalling.handler = [](const ServedRequest &, QTcpSocket &) {};
        const QTemporaryDir home;
        Process host(QStringLiteral(TOLVANE_SHUTDOWN_HOST), {busy, way},
                     {.environment = {{u"XDG_CONFIG_HOME"_s, home.path()},
                                      {u"TOLVANE_API_URL"_s, stalling.url()}},
                      .channels = QProcess::SeparateChannels});
        waitFor(u"the end of the host"_s, [&host] { return !host.isRunning(); });
        QCOMPARE(host.errors(), QByteArray()); // The sanitizers report here.
        QCOMPARE(host.waitForExit(), 3);
        QVERIFY(!stalling.requests.isEmpty());
    }
};

QTEST_GUILESS_MAIN(ShutdownTest)
#include "tst_shutdown.moc"
