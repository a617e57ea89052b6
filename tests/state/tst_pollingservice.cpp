// SPDX-License-Identifier: MIT
#include "backend/apierror.h"
#include "base/errors.h"
#include "state/notifications.h"
#include "state/pollingservice.h"
#include "testing/wire.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

namespace {

const QString ticketId = u"t1"_s;

MessageDto customer(const char *id)
{
    return makeMessage(QString::fromLatin1(id));
}

MessageDto agent(const char *id, const QString &type = words::aiAgent)
{
    return makeMessage(QString::fromLatin1(id), type);
}

/// A backend whose ticket is `messages`, or that throws while `failing` is set.
struct Scene : Fixture
{
    Scene()
    {
        setKey();
        session->handler = [this](const UrlRequest &) {
            if (failing)
                failing();
            return answer(makeTicket(messages));
        };
        polling = PollingService::shared();
        settle();
    }

    void start(qsizetype count)
    {
        polling->startPolling(ticketId, count);
        settle();
    }

    QStringList active()
    {
        QFuture<QList<QString>> future = polling->activeTickets();
        settle();
        return future.result();
    }

    qsizetype polls() const { return session->requests.size(); }

    QStringList broadcastIds() const
    {
        QStringList ids;
        for (const Broadcast &broadcast : broadcasts)
            ids += broadcast.userInfo->value(u"id"_s).toString();
        return ids;
    }

    qsizetype lineCount(const QString &text) const { return log->lines.filter(text).size(); }

    QList<MessageDto> messages = {customer("m1")};
    std::function<void()> failing;
    std::shared_ptr<PollingService> polling;
};

void failWithNetworkError()
{
    throw UrlError(UrlError::networkConnectionLost);
}

} // namespace

class PollingServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsAtTheFirstNewMessage_data()
    {
        QTest::addColumn<QString>("senderType");
        QTest::addColumn<QString>("trace");
        const QString byNotification =
            u"Message received via notification, stopping polling for ticket: t1"_s;
        QTest::newRow("AI") << words::aiAgent << byNotification;
        QTest::newRow("human") << words::humanAgent << byNotification;
        QTest::newRow("customer, by the loop's own broadcast") << words::customer << byNotification;
    }

    void endsAtTheFirstNewMessage()
    {
        QFETCH(const QString, senderType);
        QFETCH(const QString, trace);
        Scene scene;
        scene.start(1);
        QCOMPARE(scene.polls(), 1);
        QVERIFY(scene.broadcasts.isEmpty());
        QCOMPARE(scene.active(), QStringList{ticketId});

        scene.messages += makeMessage(u"m2"_s, senderType);
        scene.clock->advance(1s);
        QCOMPARE(scene.broadcastIds(), QStringList{u"m2"_s});
        QCOMPARE(scene.lineCount(trace), 1);
        QCOMPARE(scene.active(), QStringList());
        scene.clock->advance(10s);
        QCOMPARE(scene.polls(), 2);
        QCOMPARE(scene.delegate->names(),
                 QStringList({u"polling_started"_s, u"polling_stopped"_s}));
        const QVariantMap stopped = scene.delegate->properties(u"polling_stopped"_s);
        QCOMPARE(stopped.value(u"duration"_s).toDouble(), 1.0);
        QCOMPARE(stopped.value(u"reason"_s), u"manual_stop"_s);
    }

    void broadcastMirrorsTheMessage()
    {
        Scene scene;
        scene.start(0);
        QCOMPARE(scene.broadcasts.size(), 1);
        const Broadcast &broadcast = scene.broadcasts.constFirst();
        QCOMPARE(broadcast.name, notifications::didReceiveMessage);
        QCOMPARE(tolvane::json::decode<MessageDto>(*broadcast.userInfo),
                 scene.messages.constFirst());
        // Absent values are sent as nulls under their keys.
        const QVariantMap sender = broadcast.userInfo->value(u"sender"_s).toMap();
        QVERIFY(sender.contains(u"name"_s));
        QVERIFY(broadcast.userInfo->contains(u"attachments"_s));
    }

    void onlyTheTailIsNew()
    {
        Scene scene;
        scene.messages = {customer("m1"), customer("m2"), customer("m3")};
        scene.start(3);
        // A shorter list is ignored, and so are changes before the remembered count.
        scene.messages = {agent("other")};
        scene.clock->advance(1s);
        scene.messages = {agent("a"), agent("b"), agent("c")};
        scene.clock->advance(1s);
        QVERIFY(scene.broadcasts.isEmpty());
        scene.messages = {agent("a"), agent("b"), agent("c"), agent("d"), agent("e")};
        scene.clock->advance(1s);
        QCOMPARE(scene.broadcastIds(), QStringList({u"d"_s, u"e"_s}));
    }

    void timesOut()
    {
        Scene scene;
        scene.start(1);
        scene.clock->advance(119s);
        QCOMPARE(scene.polls(), 120);
        QCOMPARE(scene.active(), QStringList{ticketId});
        scene.clock->advance(1s); // Exactly 120 seconds: no further poll.
        QCOMPARE(scene.polls(), 120);
        QCOMPARE(scene.active(), QStringList());
        QCOMPARE(scene.lineCount(u"Polling timeout reached for ticket: t1"_s), 1);
        QCOMPARE(scene.delegate->names(),
                 QStringList({u"polling_started"_s, u"polling_stopped"_s, u"polling_timeout"_s}));
        QCOMPARE(scene.delegate->properties(u"polling_timeout"_s)
                     .value(u"timeout_duration"_s)
                     .toDouble(),
                 120.0);
    }

    void backsOffAndGivesUp()
    {
        Scene scene;
        scene.failing = failWithNetworkError;
        scene.start(1);
        scene.clock->advance(100s);
        QCOMPARE(scene.clock->requestedSleeps(), QList<double>({2, 4, 8, 16}));
        QCOMPARE(scene.polls(), 5);
        QCOMPARE(scene.active(), QStringList());
        QCOMPARE(
            scene.lineCount(u"Max consecutive errors reached for ticket t1, stopping polling"_s),
            1);
        QCOMPARE(scene.delegate->names().count(TolvaneAnalyticsEvent::Errors::networkError), 5);
        QCOMPARE(scene.delegate->events.constLast().name(), u"polling_max_errors_reached"_s);
        QList<int> counts;
        for (const TolvaneAnalyticsEvent &event : std::as_const(scene.delegate->events)) {
            if (event.name() == TolvaneAnalyticsEvent::Errors::networkError)
                counts += event.properties().value(u"consecutive_errors"_s).toInt();
        }
        QCOMPARE(counts, QList<int>({1, 2, 3, 4, 5}));
    }

    void aGoodPollRestartsTheBackOff()
    {
        Scene scene;
        scene.failing = failWithNetworkError;
        scene.start(1);
        scene.clock->advance(2s);
        scene.failing = nullptr;
        scene.clock->advance(4s);
        scene.failing = failWithNetworkError;
        scene.clock->advance(1s);
        QCOMPARE(scene.clock->requestedSleeps(), QList<double>({2, 4, 1, 2}));
    }

    void otherCancellationsAreRetriedAtOnce()
    {
        Scene scene;
        int cancellations = 3;
        scene.failing = [&] {
            if (cancellations-- > 0)
                throw CancellationError();
        };
        scene.start(1);
        QCOMPARE(scene.polls(), 4);
        QCOMPARE(scene.clock->requestedSleeps(), QList<double>{1});
        QCOMPARE(scene.lineCount(u"Polling cancelled for ticket: t1"_s), 3);
        QVERIFY(!scene.delegate->names().contains(TolvaneAnalyticsEvent::Errors::apiError));
    }

    void restartsWithOneLoop_data()
    {
        QTest::addColumn<bool>("inRequest");
        QTest::newRow("while the older loop sleeps") << false;
        QTest::newRow("while the older loop waits for its answer") << true;
    }

    void restartsWithOneLoop()
    {
        QFETCH(const bool, inRequest);
        Scene scene;
        scene.session->held = inRequest;
        scene.start(1);
        scene.start(1);
        scene.session->release();
        QCOMPARE(scene.active(), QStringList{ticketId});
        QCOMPARE(scene.clock->sleeperCount(), 1);
        QCOMPARE(scene.delegate->names(),
                 QStringList({u"polling_started"_s, u"polling_stopped"_s, u"polling_started"_s}));
        const qsizetype before = scene.polls();
        scene.clock->advance(5s);
        QCOMPARE(scene.polls(), before + 5);
    }

    void anOlderLoopsFailureLeavesTheNewerAlone()
    {
        Scene scene;
        scene.session->held = true;
        scene.failing = failWithNetworkError;
        scene.start(1);
        const auto older = std::exchange(scene.failing, nullptr);
        scene.session->handler = [&, calls = 0](const UrlRequest &) mutable {
            if (calls++ == 0)
                older();
            return answer(makeTicket(scene.messages));
        };
        scene.start(1);
        scene.session->release();
        QCOMPARE(scene.active(), QStringList{ticketId});
        scene.clock->advance(3s);
        QCOMPARE(scene.active(), QStringList{ticketId});
    }

    void stopsOnABroadcastFromElsewhere_data()
    {
        QTest::addColumn<NotificationCenter::UserInfo>("userInfo");
        QTest::addColumn<bool>("stops");
        using Info = NotificationCenter::UserInfo;
        QTest::newRow("its ticket") << Info(tolvane::json::dictionary(agent("push"))) << true;
        QTest::newRow("another ticket")
            << Info(tolvane::json::dictionary(makeMessage(u"x"_s, words::aiAgent, u"t2"_s)))
            << false;
        QTest::newRow("not a message") << Info(QVariantMap{{u"id"_s, 7}}) << false;
        QTest::newRow("no dictionary") << Info() << false;
    }

    void stopsOnABroadcastFromElsewhere()
    {
        QFETCH(const NotificationCenter::UserInfo, userInfo);
        QFETCH(const bool, stops);
        Scene scene;
        scene.start(1);
        platform().notificationCenter->post(notifications::didReceiveMessage, userInfo);
        settle();
        QCOMPARE(scene.active().isEmpty(), stops);
        QCOMPARE(scene.clock->sleeperCount(), stops ? 0 : 1);
    }

    void ticketsArePolledSideBySide()
    {
        Scene scene;
        scene.session->handler = [&](const UrlRequest &request) {
            if (request.url.path().endsWith("t2"_L1))
                failWithNetworkError();
            return answer(makeTicket(scene.messages));
        };
        scene.start(1);
        scene.polling->startPolling(u"t2"_s, 1);
        scene.clock->advance(60s);
        QCOMPARE(scene.active(), QStringList{ticketId});
        QCOMPARE(scene.polls(), 61 + 5);
    }
};

QTEST_GUILESS_MAIN(PollingServiceTest)
#include "tst_pollingservice.moc"
