// SPDX-License-Identifier: MIT
// tolvane-growth-host SCENARIO SIZE: measures costs that depend on the size of the data. Prints
// each as a line "NUMBER NAME".
#include "backend/configuration.h"
#include "backend/wire/json.h"
#include "benchmarks/support/conversation.h"
#include "benchmarks/support/resourceusage.h"
#include "conversationfixture.h"
#include "frames.h"
#include "runninghost.h"
#include "testing/samplerecords.h"
#include "testing/waitfor.h"

#include <tolvane/tolvane.h>
#include <tolvane/views.h>

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <mutex>

extern void qml_register_types_Tolvane_Private();

namespace {

using namespace tolvane;
using namespace tolvane::bench;
using namespace std::chrono_literals;

void report(double figure, const char *name)
{
    std::printf("%f %s\n", figure, name);
}

/// Knows the longest time that one event has taken on the main thread.
class TimedApplication final : public QGuiApplication
{
public:
    using QGuiApplication::QGuiApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (m_depth > 0 || !isMainThread())
            return QGuiApplication::notify(receiver, event);
        ++m_depth;
        const double before = threadMilliseconds();
        const bool isHandled = QGuiApplication::notify(receiver, event);
        m_longest = std::max(m_longest, threadMilliseconds() - before);
        --m_depth;
        return isHandled;
    }

    /// Forgets earlier events.
    double takeLongest() { return std::exchange(m_longest, 0); }

private:
    bool isMainThread() const { return QThread::currentThread() == thread(); }

    int m_depth = 0;
    double m_longest = 0;
};

/// The processor time of the main thread for what an action causes, without the screen's other
/// work.
template <typename Action>
double mainThreadTime(const Action &action)
{
    constexpr auto longEnough = 150ms;
    const double start = threadMilliseconds();
    action();
    test::wait(longEnough);
    const double end = threadMilliseconds();
    test::wait(longEnough);
    return (end - start) - (threadMilliseconds() - end);
}

/// The response to GET /tickets, which may change.
class TicketsBackend
{
public:
    void set(const QList<TicketPreviewDto> &tickets)
    {
        const std::scoped_lock lock(m_mutex);
        m_body = test::encodeList(tickets);
    }
    /// Keeps the response back as long as the result exists.
    [[nodiscard]] std::unique_lock<std::mutex> hold() { return std::unique_lock(m_mutex); }
    QByteArray bodyFor(const UrlRequest &request)
    {
        if (request.url.path().endsWith(QLatin1String("/settings")))
            return m_branding;
        const std::scoped_lock lock(m_mutex);
        return m_body;
    }

private:
    const QByteArray m_branding = json::encode(test::sampleBranding());
    std::mutex m_mutex;
    QByteArray m_body;
};

void fling(RunningHost &host, FixedStepDriver &driver)
{
    constexpr int frameCount = 25;
    constexpr double distance = 40;
    QQuickItem *list = RunningHost::listIn(host.messenger());
    std::vector<double> costs;
    for (int frame = 0; frame < frameCount; ++frame) {
        list->setProperty("contentY", list->property("contentY").toDouble() + distance);
        costs.push_back(driver.frame());
    }
    report(medianOf(costs), "fling frame");
}

void openTickets(TimedApplication &, int count)
{
    RunningHost host(count);
    TicketsBackend backend;
    backend.set(host.tickets());
    platform().urlSession = std::make_unique<WorkerSession>(
        [&backend](const UrlRequest &request) { return backend.bodyFor(request); });
    // The host's animation would add to the measured times.
    host.window().rootObject()->setVisible(false);
    Tolvane::initialize(QStringLiteral("key"));
    test::settle();
    const double memory = privateMebibytes();
    for (int round = 0; round < 5; ++round) {
        // A response that is there at once would show its rows before the connections exist.
        std::unique_lock held = backend.hold();
        Tolvane::open();
        double arrival = 0;
        double shown = 0;
        QObject::connect(host.screen().tickets(), &QAbstractItemModel::rowsAboutToBeInserted,
                         &host.screen(), [&arrival] { arrival = threadMilliseconds(); });
        QObject::connect(&host.window(), &QQuickWindow::frameSwapped, &host.screen(), [&] {
            if (arrival > 0 && shown == 0)
                shown = threadMilliseconds();
        });
        held.unlock();
        test::waitFor(QStringLiteral("the list"), [&shown] { return shown > 0; });
        report(shown - arrival, "opening");
        test::wait(1000ms);
        if (round < 4) {
            host.screen().close();
            test::waitFor(QStringLiteral("the end"), [&host] { return !host.messenger(); });
        }
    }
    report(privateMebibytes() - memory, "memory");
    std::vector<double> polls;
    std::vector<double> additions;
    for (int round = 0; round < 5; ++round)
        polls.push_back(mainThreadTime([&host] { host.screen().reload(); }));
    for (int round = 0; round < 5; ++round) {
        TicketPreviewDto next = host.tickets().constFirst();
        next.id += QStringLiteral("-next");
        host.tickets().prepend(next);
        backend.set(host.tickets());
        additions.push_back(mainThreadTime([&host] { host.screen().reload(); }));
    }
    report(medianOf(polls), "quiet poll");
    report(medianOf(additions), "one more");
    FixedStepDriver driver(host.window());
    fling(host, driver);
}

void decode(TimedApplication &, int count)
{
    const QByteArray ticket = conversationJson(count);
    const TicketPreviewDto preview = test::makePreview();
    const QByteArray list = test::encodeList(QList<TicketPreviewDto>(count, preview));
    for (int round = 0; round < 9; ++round) {
        // The allocator keeps little freed memory, but returns much to the system, which costs a
        // page fault for each page the next time. Each round begins without.
        malloc_trim(0);
        double before = threadMilliseconds();
        const auto messages = json::decode<TicketDto>(ticket);
        report(threadMilliseconds() - before, "decoding messages");
        malloc_trim(0);
        before = threadMilliseconds();
        const auto previews = json::decode<QList<TicketPreviewDto>>(list);
        report(threadMilliseconds() - before, "decoding tickets");
        if (messages.messages.size() != count || previews.size() != count)
            qFatal("Decoding loses records");
    }
}

QString nested(int depth)
{
    QString text;
    for (int level = 0; level < depth; ++level)
        text += level % 2 == 0 ? QStringLiteral("*a ") : QStringLiteral("**b ");
    text += u'c';
    for (int level = depth - 1; level >= 0; --level)
        text += level % 2 == 0 ? QStringLiteral("*") : QStringLiteral("**");
    return text;
}

QString links(int count)
{
    QString text;
    for (int link = 0; link < count; ++link)
        text += QStringLiteral("https://shop.example/parcels/%1 ").arg(link);
    return text;
}

QString words(int length)
{
    return QStringLiteral("a word and *another* ").repeated(length / 21 + 1).first(length);
}

QString marks(int count)
{
    return u'a' + QString(count, QChar(0x0301));
}

/// Measures the arrival of a message in an open conversation: the whole processor time of the
/// process, and the longest event on the main thread.
void receive(TimedApplication &application, const QString &text)
{
    ConversationBackend backend;
    const HostPlatform installed(std::make_unique<WorkerSession>(
        [&backend](const UrlRequest &request) { return backend.bodyFor(request); }));
    Configuration::shared().setApiKeyOnce(QStringLiteral("key"));
    qml_register_types_Tolvane_Private();
    ConversationFixture fixture(backend, 19);
    fixture.open();
    test::wait(2000ms);
    MessageDto message = fixture.ticket.messages.constLast();
    message.id += QStringLiteral("-next");
    message.content = text;
    fixture.ticket.messages += message;
    backend.setTicket(fixture.ticket);
    const QAbstractItemModel *model = fixture.data->messages();
    const int rowCount = model->rowCount();
    application.takeLongest();
    const double before = processorTime();
    fixture.data->appear();
    test::waitFor(QStringLiteral("the message"), [&] { return model->rowCount() > rowCount; });
    test::wait(3000ms);
    report(processorTime() - before, "whole");
    report(application.takeLongest(), "at a time");
}

struct Scenario
{
    const char *name;
    void (*run)(TimedApplication &application, int size);
};

constexpr std::array scenarios = {
    Scenario{"tickets", openTickets},
    Scenario{"decode", decode},
    Scenario{"characters", [](TimedApplication &app, int size) { receive(app, words(size)); }},
    Scenario{"links", [](TimedApplication &app, int size) { receive(app, links(size)); }},
    Scenario{"marks", [](TimedApplication &app, int size) { receive(app, marks(size)); }},
    Scenario{"nesting", [](TimedApplication &app, int size) { receive(app, nested(size)); }},
};

} // namespace

int main(int argc, char **argv)
{
    // Does all work for a frame on the main thread, where it is measured.
    qputenv("QSG_RENDER_LOOP", "basic");
    TimedApplication app(argc, argv);
    const auto *scenario = std::ranges::find_if(scenarios, [&](const Scenario &each) {
        return argc == 3 && qstrcmp(each.name, argv[1]) == 0;
    });
    if (scenario == scenarios.end())
        qFatal("usage: tolvane-growth-host SCENARIO SIZE");
    scenario->run(app, QByteArray(argv[2]).toInt());
    return 0;
}
