// SPDX-License-Identifier: MIT
// tolvane-home-host SCENARIO: runs a scenario of the home screen in a host that is already running.
// Prints each measurement as a line "NAME: NUMBER".
#include "benchmarks/support/resourceusage.h"
#include "frames.h"
#include "runninghost.h"
#include "testing/replacements.h"
#include "testing/waitfor.h"
#include "ui/presentation/idlememory.h"

#include <tolvane/tolvane.h>
#include <tolvane/views.h>

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QOffscreenSurface>
#include <QtGui/QOpenGLContext>
#include <QtGui/QOpenGLFunctions>
#include <QtQml/QQmlEngine>

#include <algorithm>
#include <cstdio>
#include <malloc.h>

namespace {

using namespace tolvane;
using namespace tolvane::bench;
using namespace std::chrono_literals;

void report(const char *name, double number)
{
    std::printf("%s: %f\n", name, number);
}

/// The allocated memory in MiB. It is more precise than pages for small leaks.
double heap()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd) / (1024 * 1024);
}

void initialize()
{
    const double before = now();
    Tolvane::initialize(QStringLiteral("key"));
    report("initialize with views", now() - before);
    test::settle();
}

/// @returns the time to the first frame with the messenger, in ms
double open(RunningHost &host)
{
    const double before = now();
    Tolvane::open();
    return nextFrame(host.window()) - before;
}

void close(RunningHost &host)
{
    host.screen().close();
    test::waitFor(QStringLiteral("the messenger to close"), [&host] { return !host.messenger(); });
    test::settle();
}

/// Measures the first opening, later ones, and the memory while the messenger is open and closed.
void opening()
{
    RunningHost host(20);
    initialize();
    test::wait(2000ms);
    const double before = privateMebibytes();
    report("first open", open(host));
    host.waitForList();
    test::wait(3000ms);
    report("presentation's memory", privateMebibytes() - before);
    close(host);
    for (int round = 0; round < 5; ++round) {
        test::wait(200ms);
        report("later open", open(host));
        test::wait(500ms);
        close(host);
    }
    test::wait(idlememory::keptFor + 1s);
    report("memory after closing", privateMebibytes() - before);
}

/// The same with a minimal interface of the host, in an engine of its own.
void openingPlain()
{
    RunningHost host(20);
    test::wait(2000ms);
    const double memory = privateMebibytes();
    const double began = now();
    QQmlEngine engine;
    std::unique_ptr<QQuickItem> view = host.showPlain(engine);
    report("first plain view", nextFrame(host.window()) - began);
    test::wait(3000ms);
    report("plain view's memory", privateMebibytes() - memory);
    view.reset();
    for (int round = 0; round < 5; ++round) {
        test::wait(200ms);
        const double begins = now();
        view = host.showPlain(engine);
        report("later plain view", nextFrame(host.window()) - begins);
        test::wait(500ms);
        view.reset();
    }
}

/// Measures from the arrival of the rows to the frame that shows them.
void loading(int count)
{
    RunningHost host(count);
    initialize();
    open(host);
    host.waitForList();
    test::wait(500ms);
    for (int round = 0; round < 5; ++round) {
        close(host);
        Tolvane::open();
        double arrived = 0;
        QObject::connect(host.screen().tickets(), &QAbstractItemModel::rowsAboutToBeInserted,
                         &host.screen(), [&arrived] { arrived = now(); });
        host.waitForList();
        report(qPrintable(QStringLiteral("%1 tickets painted").arg(count)),
               nextFrame(host.window()) - arrived);
        test::wait(500ms);
    }
}

/// Counts the delegates that a refresh with one changed row creates again.
void refreshing()
{
    RunningHost host(1000);
    initialize();
    open(host);
    host.waitForList();
    test::wait(1000ms);
    QQuickItem *rows =
        RunningHost::listIn(host.messenger())->property("contentItem").value<QQuickItem *>();
    QHash<QQuickItem *, QPointer<QQuickItem>> before;
    for (QQuickItem *item : rows->childItems())
        before.insert(item, item);
    bool isChanged = false;
    QObject::connect(host.screen().tickets(), &QAbstractItemModel::dataChanged, &host.screen(),
                     [&isChanged] { isChanged = true; });
    host.tickets()[1].lastMessage.content = QStringLiteral("Something else");
    host.screen().reload();
    test::waitFor(QStringLiteral("the refresh"), [&isChanged] { return isChanged; });
    nextFrame(host.window());
    const auto items = rows->childItems();
    report("rebuilt rows",
           std::ranges::count_if(items, [&](QQuickItem *item) { return !before.value(item); }));
}

/// Flings a list from its top to its end and reports the processor time of each frame.
void fling(const char *name, QQuickItem *list, FixedStepDriver &driver)
{
    constexpr double velocity = 30'000;
    constexpr int framesToFling = 30;
    list->setProperty("maximumFlickVelocity", velocity);
    QList<double> costs;
    while (!list->property("atYEnd").toBool()) {
        if (costs.size() % framesToFling == 0 &&
            !QMetaObject::invokeMethod(list, "flick", Q_ARG(qreal, 0), Q_ARG(qreal, -velocity)))
            qFatal("The list cannot be flung");
        costs += driver.frame();
    }
    for (const double cost : costs)
        report(name, cost);
}

void flinging(bool isPlain)
{
    qputenv("QSG_RENDER_LOOP", "basic");
    RunningHost host(10'000);
    FixedStepDriver driver(host.window());
    QQmlEngine engine;
    if (isPlain) {
        std::unique_ptr<QQuickItem> view = host.showPlain(engine);
        driver.frame();
        fling("plain frame", RunningHost::listIn(view.get()), driver);
        return;
    }
    initialize();
    open(host);
    host.waitForList();
    for (int frame = 0; frame < 60; ++frame)
        driver.frame();
    fling("frame", RunningHost::listIn(host.messenger()), driver);
}

/// Measures the memory that many presentations leave behind.
void reopening()
{
    constexpr int rounds = 200;
    qputenv("QSG_RENDER_LOOP", "basic");
    RunningHost host(20);
    FixedStepDriver driver(host.window());
    initialize();
    double before = 0;
    for (int round = -20; round < rounds; ++round) {
        RunningHost::clearRequests();
        if (round == 0)
            before = heap();
        open(host);
        host.waitForList();
        driver.frame(500);
        host.screen().close();
        while (host.messenger())
            driver.frame(500);
        test::settle();
    }
    report("KiB left by one presentation", (heap() - before) * 1024 / rounds);
}

void printRenderer()
{
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface))
        qFatal("There is no OpenGL");
    std::printf("%s\n",
                reinterpret_cast<const char *>(context.functions()->glGetString(GL_RENDERER)));
}

} // namespace

int main(int argc, char **argv)
{
    const QHash<QString, std::function<void()>> scenarios = {
        {QStringLiteral("opening"), opening},
        {QStringLiteral("openingPlain"), openingPlain},
        {QStringLiteral("loadingFew"), [] { loading(20); }},
        {QStringLiteral("loadingMany"), [] { loading(10'000); }},
        {QStringLiteral("refreshing"), refreshing},
        {QStringLiteral("flinging"), [] { flinging(false); }},
        {QStringLiteral("flingingPlain"), [] { flinging(true); }},
        {QStringLiteral("reopening"), reopening},
        {QStringLiteral("renderer"), printRenderer},
    };
    const QGuiApplication app(argc, argv);
    const auto scenario = scenarios.constFind(QString::fromLatin1(argc > 1 ? argv[1] : ""));
    if (scenario == scenarios.cend())
        qFatal("usage: tolvane-home-host SCENARIO");
    (*scenario)();
    return 0;
}
