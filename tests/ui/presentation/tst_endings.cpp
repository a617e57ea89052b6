// SPDX-License-Identifier: MIT
#include "testing/process.h"
#include "testing/scriptedserver.h"
#include "testing/waitfor.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane::test;

namespace {

/// A backend that never answers, so the placeholders of the settings are animated, and a home.
struct World
{
    World()
    {
        stalling.handler = [](const ServedRequest &, QTcpSocket &) {};
        // Objects of the main function leak at exit().
        environment = {{u"ASAN_OPTIONS"_s, u"detect_leaks=0:intercept_tls_get_addr=0"_s},
                       {u"XDG_RUNTIME_DIR"_s, home.path()},
                       {u"XDG_CONFIG_HOME"_s, home.path()},
                       {u"TOLVANE_API_URL"_s, stalling.url()}};
    }

    std::unique_ptr<Process> start(const QStringList &arguments) const
    {
        return std::make_unique<Process>(
            QStringLiteral(TOLVANE_ENDING_HOST), arguments,
            Process::Options{.environment = environment, .channels = QProcess::SeparateChannels});
    }

    ScriptedServer stalling;
    QTemporaryDir home;
    QMap<QString, QString> environment;
};

} // namespace

/// Ends hosts with an open messenger in all ways, at random moments of its animations.
class EndingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theProcessEnds_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("window");
        for (const char *way : {"exit", "quick exit", "return", "window first", "close and exit",
                                "callback", "callback, return"}) {
            for (const char *window : {"quick", "raster"})
                QTest::addRow("%s, %s", way, window)
                    << QString::fromLatin1(way) << QString::fromLatin1(window);
        }
        QTest::newRow("window first, qml") << u"window first"_s << u"qml"_s;
        QTest::newRow("moved item") << u"moved item"_s << u"quick"_s;
    }

    void theProcessEnds()
    {
        QFETCH(const QString, way);
        QFETCH(const QString, window);
        World world;
        std::vector<std::unique_ptr<Process>> hosts;
        for (int moment = 0; moment < 2; ++moment) {
            const int delay = QRandomGenerator::global()->bounded(600);
            hosts.push_back(world.start({way, QString::number(delay), window}));
        }
        for (const auto &host : hosts) {
            waitFor(u"the end of the host"_s, [&host] { return !host->isRunning(); });
            // The sanitizers report here. Newer Qt prints such lines for any program that calls
            // exit() while its application object exists.
            static const QRegularExpression note(u"QThreadStorage: Thread [^\n]*\n"_s);
            QCOMPARE(QString::fromUtf8(host->errors()).remove(note), QString());
            QCOMPARE(host->waitForExit(), 3);
        }
    }

    void withoutOpenGLTheHostContinues()
    {
        World world;
        world.environment.insert(u"QT_XCB_GL_INTEGRATION"_s, u"none"_s);
        world.environment.insert(u"QT_QUICK_BACKEND"_s, QString());
        const auto host = world.start({u"closed already"_s, u"1000"_s, u"raster"_s});
        waitFor(u"the end of the host"_s, [&host] { return !host->isRunning(); });
        QCOMPARE(host->waitForExit(), 3);
    }
};

QTEST_GUILESS_MAIN(EndingsTest)
#include "tst_endings.moc"
