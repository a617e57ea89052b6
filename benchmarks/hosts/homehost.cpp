// SPDX-License-Identifier: MIT
// A host that has been running for a while, and the messenger in it. Does what it is told by its
// first argument, and tells what that took in lines of a name and a number.
#include "frames.h"
#include "runninghost.h"
#include "testing/replacements.h"

#include <tolvane/tolvane.h>
#include <tolvane/views.h>

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>

#include <algorithm>
#include <cstdio>
#include <malloc.h>

namespace {

using namespace tolvane;
using namespace tolvane::bench;

void tell(const char *name, double number)
{
    std::printf("%s: %f\n", name, number);
}

/// What belongs to this process alone, in MiB, without what the allocator only holds back.
double ownMemory()
{
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the system does not tell how much memory is used");
    double kibibytes = 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("Private_"))
            kibibytes += line.simplified().split(' ').at(1).toDouble();
    }
    return kibibytes / 1024;
}

/// What is allocated, in mebibytes: of little that adds up, pages tell too roughly.
double heap()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd) / (1024 * 1024);
}

void initialize()
{
    const double before = now();
    Tolvane::initialize(QStringLiteral("key"));
    tell("initialize with views", now() - before);
    test::settle();
}

/// To the first frame that has the messenger in it.
double open(RunningHost &host)
{
    const double before = now();
    Tolvane::open();
    return nextFrame(host.window()) - before;
}

void close(RunningHost &host)
{
    host.screen().close();
    waitUntil([&host] { return !host.messenger(); });
    test::settle();
}

/// The first time and later ones; the memory meanwhile and afterwards.
void opening()
{
    RunningHost host(20);
    initialize();
    pause(2000);
    const double before = ownMemory();
    tell("first open", open(host));
    host.waitForList();
    pause(3000);
    tell("presentation's memory", ownMemory() - before);
    close(host);
    pause(1000);
    tell("memory after closing", ownMemory() - before);
    for (int round = 0; round < 5; ++round) {
        tell("later open", open(host));
        pause(500);
        close(host);
        pause(200);
    }
}

/// What the host would see of an interface of its own, in an engine of its own.
void openingPlain()
{
    RunningHost host(20);
    pause(500);
    const double began = now();
    QQmlEngine engine;
    std::unique_ptr<QQuickItem> view(host.showPlain(engine));
    tell("first plain view", nextFrame(host.window()) - began);
    view.reset();
    for (int round = 0; round < 5; ++round) {
        pause(200);
        const double begins = now();
        view.reset(host.showPlain(engine));
        tell("later plain view", nextFrame(host.window()) - begins);
        pause(500);
        view.reset();
    }
}

/// From the rows' arrival to the frame that has them.
void loading(int count)
{
    RunningHost host(count);
    initialize();
    open(host);
    host.waitForList();
    pause(500);
    for (int round = 0; round < 5; ++round) {
        close(host);
        Tolvane::open();
        double arrived = 0;
        QObject::connect(host.screen().tickets(), &QAbstractItemModel::rowsAboutToBeInserted,
                         &host.screen(), [&arrived] { arrived = now(); });
        host.waitForList();
        tell(qPrintable(QStringLiteral("%1 tickets painted").arg(count)),
             nextFrame(host.window()) - arrived);
        pause(500);
    }
}

/// A refresh that brings one row in another state.
void refreshing()
{
    RunningHost host(1000);
    initialize();
    open(host);
    host.waitForList();
    pause(1000);
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
    waitUntil([&isChanged] { return isChanged; });
    nextFrame(host.window());
    const auto items = rows->childItems();
    tell("rows built anew",
         std::ranges::count_if(items, [&](QQuickItem *item) { return !before.value(item); }));
}

/// From the top of a list to its end, by flings one upon the other; what each frame took.
void fling(const char *name, QQuickItem *list, SteadyTime &time)
{
    constexpr double velocity = 30'000;
    constexpr int framesToFling = 30;
    list->setProperty("maximumFlickVelocity", velocity);
    QList<double> costs;
    while (!list->property("atYEnd").toBool()) {
        if (costs.size() % framesToFling == 0 &&
            !QMetaObject::invokeMethod(list, "flick", Q_ARG(qreal, 0), Q_ARG(qreal, -velocity)))
            qFatal("the list cannot be flung");
        costs += time.frame();
    }
    for (const double cost : costs)
        tell(name, cost);
}

void flinging(bool isPlain)
{
    qputenv("QSG_RENDER_LOOP", "basic");
    RunningHost host(10'000);
    SteadyTime time(host.window());
    QQmlEngine engine;
    if (isPlain) {
        std::unique_ptr<QQuickItem> view(host.showPlain(engine));
        time.frame();
        fling("plain frame", RunningHost::listIn(view.get()), time);
        return;
    }
    initialize();
    open(host);
    host.waitForList();
    for (int frame = 0; frame < 60; ++frame)
        time.frame();
    fling("frame", RunningHost::listIn(host.messenger()), time);
}

/// The memory that is left of many showings.
void again()
{
    constexpr int rounds = 200;
    qputenv("QSG_RENDER_LOOP", "basic");
    RunningHost host(20);
    SteadyTime time(host.window());
    initialize();
    double before = 0;
    for (int round = -20; round < rounds; ++round) {
        RunningHost::forgetRequests();
        if (round == 0)
            before = heap();
        open(host);
        host.waitForList();
        time.frame(500);
        host.screen().close();
        while (host.messenger())
            time.frame(500);
        test::settle();
    }
    tell("KiB left of one showing", (heap() - before) * 1024 / rounds);
}

} // namespace

int main(int argc, char **argv)
{
    const QHash<QString, std::function<void()>> modes = {
        {QStringLiteral("opening"), opening},
        {QStringLiteral("openingPlain"), openingPlain},
        {QStringLiteral("loadingFew"), [] { loading(20); }},
        {QStringLiteral("loadingMany"), [] { loading(10'000); }},
        {QStringLiteral("refreshing"), refreshing},
        {QStringLiteral("flinging"), [] { flinging(false); }},
        {QStringLiteral("flingingPlain"), [] { flinging(true); }},
        {QStringLiteral("again"), again},
    };
    const QGuiApplication app(argc, argv);
    const auto mode = modes.constFind(QString::fromLatin1(argc > 1 ? argv[1] : ""));
    if (mode == modes.cend())
        qFatal("no such mode");
    (*mode)();
    return 0;
}
