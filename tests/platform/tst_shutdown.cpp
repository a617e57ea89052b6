// SPDX-License-Identifier: MIT
#include "testing/scriptedserver.h"

#include <QtCore/QProcess>
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
        for (const char *busy : {"request", "sleep", "work", "polling"}) {
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
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, home.path());
        environment.insert(u"TOLVANE_API_URL"_s, stalling.url());
        QProcess host;
        host.setProcessEnvironment(environment);
        host.start(QStringLiteral(TOLVANE_SHUTDOWN_HOST), {busy, way});
        QTRY_COMPARE_WITH_TIMEOUT(host.state(), QProcess::NotRunning, 20'000);
        QCOMPARE(host.readAllStandardError(), QByteArray()); // The sanitizers report here.
        QCOMPARE(host.exitStatus(), QProcess::NormalExit);
        QCOMPARE(host.exitCode(), 3);
        QVERIFY(!stalling.requests.isEmpty());
    }
};

QTEST_GUILESS_MAIN(ShutdownTest)
#include "tst_shutdown.moc"
