// SPDX-License-Identifier: MIT
#include "platform/async/awaitfuture.h"
#include "platform/async/clock.h"
#include "platform/async/eventloopthread.h"
#include "platform/async/notificationcenter.h"

#include <QtTest/QTest>

#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace tolvane;

namespace {

using Delivery = NotificationCenter::Delivery;

const QString name = u"didReceiveMessage"_s;

void onAnotherThread(const std::function<void()> &work)
{
    std::jthread thread(work);
}

/// The outcome of a future: "done", "cancelled", or the text of its exception.
QString outcomeOf(QFuture<void> future)
{
    if (!QTest::qWaitFor([&] { return future.isFinished(); }, 20'000))
        return u"timeout"_s;
    try {
        future.waitForFinished();
        return u"done"_s;
    } catch (const CancellationError &) {
        return u"cancelled"_s;
    } catch (const std::exception &error) {
        return QString::fromUtf8(error.what());
    }
}

/// @param stopped when the stop is requested: never, before, during or after the sleep
/// @param elsewhere whether another thread requests it
void sleepAndStop(int stopped, bool elsewhere)
{
    const auto clock = makeSystemClock();
    std::stop_source source;
    const auto stop = [&] {
        elsewhere ? onAnotherThread([&] { source.request_stop(); }) : void(source.request_stop());
    };
    if (stopped == 1)
        stop();
    const bool cancelled = stopped == 1 || stopped == 2;
    const auto duration = cancelled ? Clock::Duration(1h) : Clock::Duration(30ms);
    const auto begun = clock->monotonicNow();
    const QFuture<void> future = clock->sleep(duration, source.get_token());
    QCOMPARE(future.isFinished(), stopped == 1);
    if (stopped == 2) {
        stop();
        QVERIFY(future.isFinished());
    }
    QCOMPARE(outcomeOf(future), cancelled ? u"cancelled"_s : u"done"_s);
    QVERIFY(cancelled || clock->monotonicNow() - begun >= duration);
    if (stopped == 3)
        stop();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class ConcurrencyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void observersChangeDuringNotification()
    {
        NotificationCenter center(*m_main);
        QStringList notified;
        NotificationCenter::Observation itself, next, added;
        itself = center.observe(name, Delivery::postingThread, [&](const auto &) {
            notified += u"itself"_s;
            added = center.observe(name, Delivery::postingThread,
                                   [&](const auto &) { notified += u"added"_s; });
            next.reset();
            itself.reset();
            center.post(u"nested"_s, {});
            notified += u"still there"_s;
        });
        next = center.observe(name, Delivery::postingThread,
                              [&](const auto &) { notified += u"next"_s; });
        const auto nested = center.observe(u"nested"_s, Delivery::postingThread,
                                           [&](const auto &) { notified += u"nested"_s; });
        center.post(name, {});
        QCOMPARE(notified, QStringList({u"itself"_s, u"nested"_s, u"still there"_s}));
        center.post(name, {});
        QCOMPARE(notified.last(), u"added"_s);
    }

    void mainThreadObserversRunOnTheMainThread()
    {
        NotificationCenter center(*m_main);
        std::thread::id posting, main;
        int dropped = 0;
        const auto here = center.observe(name, Delivery::postingThread, [&](const auto &) {
            posting = std::this_thread::get_id();
        });
        const auto there = center.observe(name, Delivery::mainThread,
                                          [&](const auto &) { main = std::this_thread::get_id(); });
        auto tooLate = center.observe(name, Delivery::mainThread, [&](const auto &) { ++dropped; });
        onAnotherThread([&] { center.post(name, {}); });
        QVERIFY(posting != std::thread::id() && posting != std::this_thread::get_id());
        QCOMPARE(main, std::thread::id());
        tooLate.reset(); // Posted, but not yet delivered.
        QTRY_VERIFY(main == std::this_thread::get_id());
        QCOMPARE(dropped, 0);
    }

    void serialWorkKeepsItsOrder()
    {
        EventLoopThread serial(u"serial"_s);
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"a job's own"_s));
        serial.post([] { throw std::runtime_error("a job's own"); });
        constexpr int threads = 4;
        constexpr int jobs = 250;
        std::array<QList<int>, threads> seen;
        QSet<QThread *> ranOn;
        {
            std::vector<std::jthread> posting;
            for (int thread = 0; thread < threads; ++thread) {
                posting.emplace_back([&, thread] {
                    for (int job = 0; job < jobs; ++job)
                        serial.post([&, thread, job] {
                            seen.at(thread) += job;
                            ranOn += QThread::currentThread();
                        });
                });
            }
        }
        QCOMPARE(outcomeOf(serial.run([] {})), u"done"_s);
        for (const QList<int> &order : seen)
            QVERIFY(order.size() == jobs && std::ranges::is_sorted(order));
        QCOMPARE(ranOn.size(), 1);
        QVERIFY(!ranOn.contains(QThread::currentThread()));
    }

    void sleepsEnd()
    {
        for (const bool elsewhere : {false, true}) {
            for (const int stopped : {0, 1, 2, 3})
                sleepAndStop(stopped, elsewhere);
        }
    }

    void stopsRaceWithTheEndOfSleeps()
    {
        const auto clock = makeSystemClock();
        for (int i = 0; i < 200; ++i) {
            std::stop_source source;
            const QFuture<void> future = clock->sleep(1ms, source.get_token());
            std::jthread stopping([&source, end = clock->monotonicNow() + 1ms] {
                while (std::chrono::steady_clock::now() < end)
                    std::this_thread::yield();
                source.request_stop();
            });
            const QString end = outcomeOf(future);
            QVERIFY2(end == "done"_L1 || end == "cancelled"_L1, qPrintable(end));
        }
    }

private:
    const std::unique_ptr<Executor> m_main = makeMainExecutor();
};

QTEST_GUILESS_MAIN(ConcurrencyTest)
#include "tst_concurrency.moc"
