// SPDX-License-Identifier: MIT
#include "backend/apierror.h"
#include "base/errors.h"
#include "state/notifications.h"
#include "state/pollingservice.h"
#include "testing/samplerecords.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

namespace {

const QString ticketId = u"t1"_s;
const QStringList restarted = {u"polling_started"_s, u"polling_stopped"_s, u"polling_started"_s};

MessageDto customer(const char *id)
{
    return makeMessage(QString::fromLatin1(id));
}

MessageDto agent(const char *id, const QString &type = words::aiAgent)
{
    MessageDto message = makeMessage(QString::fromLatin1(id), type);
    message.sender.name = u"name of "_s + type;
    return message;
}

/// A backend whose ticket is `messages`, or that throws while `failing` is set.
struct PollingFixture : Fixture
{
    PollingFixture()
    {
        setKey();
        session->handler = [this](const UrlRequest &) {
            if (failing)
                failing();
            return jsonResponse(makeTicket(messages));
        };
        // Registered before the observer of the service.
        m_observation = platform().notificationCenter->observe(
            notifications::didReceiveMessage, NotificationCenter::Delivery::mainThread,
            [this](const auto &) {
                if (const auto react = onBroadcast)
                    react();
            });
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
    std::function<void()> onBroadcast;
    std::shared_ptr<PollingService> polling;

private:
    NotificationCenter::Observation m_observation;
};

void failWithNetworkError()
{
    throw UrlError(UrlError::networkConnectionLost);
}

void endAtANewMessage(const QString &senderType, const QString &messageTicketId,
                      const QString &trace)
{
    PollingFixture fixture;
    fixture.start(1);
    QCOMPARE(fixture.polls(), 1);
    QVERIFY(fixture.broadcasts.isEmpty());
    QCOMPARE(fixture.active(), QStringList{ticketId});

    fixture.messages += makeMessage(u"m2"_s, senderType, messageTicketId);
    fixture.clock->advance(1s);
    QCOMPARE(fixture.broadcastIds(), QStringList{u"m2"_s});
    QCOMPARE(fixture.lineCount(trace), 1);
    QCOMPARE(fixture.active(), QStringList());
    fixture.clock->advance(10s);
    QCOMPARE(fixture.polls(), 2);
    QCOMPARE(fixture.delegate->names(), QStringList({u"polling_started"_s, u"polling_stopped"_s}));
    const QVariantMap stopped = fixture.delegate->properties(u"polling_stopped"_s);
    QCOMPARE(stopped.value(u"duration"_s).toDouble(), 1.0);
    QCOMPARE(stopped.value(u"reason"_s), u"manual_stop"_s);
}

void stopWhileARequestRuns(bool isFailing, bool isReplaced)
{
    PollingFixture fixture;
    fixture.session->held = true;
    fixture.start(1);
    // The customer's next message, which the older loop doesn't know.
    fixture.messages += customer("m2");
    fixture.failing = [isFailing, calls = 0]() mutable {
        if (isFailing && calls++ == 0)
            failWithNetworkError();
    };
    if (isReplaced)
        fixture.start(2);
    else
        fixture.polling->stopPolling(ticketId);
    settle();
    fixture.session->release();
    QCOMPARE(fixture.broadcastIds(), QStringList());
    const QString networkError = TolvaneAnalyticsEvent::Errors::networkError;
    QStringList names = fixture.delegate->names();
    QCOMPARE(names.removeAll(networkError), isFailing ? 1 : 0);
    QCOMPARE(names, isReplaced ? restarted : restarted.first(2));
    QCOMPARE(fixture.delegate->properties(networkError).value(u"consecutive_errors"_s, 0).toInt(),
             0);
    QCOMPARE(fixture.active(), isReplaced ? QStringList{ticketId} : QStringList());
    QCOMPARE(fixture.clock->requestedSleeps(), isReplaced ? QList<double>{1} : QList<double>());
    for (const QString &line : {u"New messages"_s, u"Max consecutive errors"_s})
        QCOMPARE(fixture.lineCount(line), 0);
    fixture.messages += agent("m3");
    fixture.clock->advance(1s);
    QCOMPARE(fixture.broadcastIds(), isReplaced ? QStringList{u"m3"_s} : QStringList());
}

} // namespace

class PollingServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsAtTheFirstNewMessage()
    {
        // A broadcast ends it, whoever has written the message.
        endAtANewMessage(words::customer, ticketId,
                         u"Message received via notification, stopping polling for ticket: t1"_s);
        // No observer takes these for the ticket, so the loop itself has to end.
        for (const QString &sender : {words::aiAgent, words::humanAgent})
            endAtANewMessage(sender, u"t2"_s, u"Stopping polling for ticket: t1"_s);
    }

    void onlyTheTailIsNew()
    {
        PollingFixture fixture;
        fixture.messages = {customer("m1"), customer("m2"), customer("m3")};
        fixture.start(3);
        // A shorter list is ignored, and so are changes before the remembered count.
        fixture.messages = {agent("other")};
        fixture.clock->advance(1s);
        fixture.messages = {agent("a"), agent("b"), agent("c")};
        fixture.clock->advance(1s);
        QVERIFY(fixture.broadcasts.isEmpty());
        fixture.messages = {agent("a"), agent("b"), agent("c"), agent("d"), agent("e")};
        fixture.clock->advance(1s);
        QCOMPARE(fixture.broadcastIds(), QStringList({u"d"_s, u"e"_s}));
    }

    void broadcastMessagesAreNotRepeated()
    {
        PollingFixture fixture;
        fixture.start(1);
        // A customer's message of another ticket doesn't end the loop.
        const MessageDto other = makeMessage(u"x"_s, words::customer, u"t2"_s);
        fixture.messages += other;
        fixture.clock->advance(1s);
        fixture.messages = {customer("m1"), customer("inserted"), other};
        fixture.clock->advance(1s);
        QCOMPARE(fixture.broadcastIds(), QStringList{u"x"_s});
        QCOMPARE(fixture.lineCount(u"Skipping 1 already processed messages for ticket: t1"_s), 1);
        QCOMPARE(fixture.active(), QStringList{ticketId});
    }

    void timesOut()
    {
        PollingFixture fixture;
        fixture.start(1);
        fixture.clock->advance(119s);
        QCOMPARE(fixture.polls(), 120);
        QCOMPARE(fixture.active(), QStringList{ticketId});
        fixture.clock->advance(1s); // Exactly 120 seconds: no further poll.
        QCOMPARE(fixture.polls(), 120);
        QCOMPARE(fixture.active(), QStringList());
        QCOMPARE(fixture.lineCount(u"Polling timeout reached for ticket: t1"_s), 1);
        QCOMPARE(fixture.delegate->names(),
                 QStringList({u"polling_started"_s, u"polling_stopped"_s, u"polling_timeout"_s}));
        QCOMPARE(fixture.delegate->properties(u"polling_timeout"_s)
                     .value(u"timeout_duration"_s)
                     .toDouble(),
                 120.0);
    }

    void backsOffAndGivesUp()
    {
        PollingFixture fixture;
        fixture.failing = failWithNetworkError;
        fixture.start(1);
        fixture.clock->advance(2s);
        fixture.failing = nullptr;
        fixture.clock->advance(4s);
        fixture.failing = failWithNetworkError; // The poll in between has reset the back-off.
        fixture.delegate->events.clear();
        fixture.clock->advance(100s);
        QCOMPARE(fixture.clock->requestedSleeps(), QList<double>({2, 4, 1, 2, 4, 8, 16}));
        QCOMPARE(fixture.polls(), 3 + 5);
        QCOMPARE(fixture.active(), QStringList());
        QCOMPARE(
            fixture.lineCount(u"Max consecutive errors reached for ticket t1, stopping polling"_s),
            1);
        QCOMPARE(fixture.delegate->names().count(TolvaneAnalyticsEvent::Errors::networkError), 5);
        QCOMPARE(fixture.delegate->events.constLast().name(), u"polling_max_errors_reached"_s);
        QCOMPARE(fixture.delegate->events.constLast().properties().value(u"max_errors"_s), 5);
        QList<int> counts;
        for (const TolvaneAnalyticsEvent &event : std::as_const(fixture.delegate->events)) {
            if (event.name() == TolvaneAnalyticsEvent::Errors::networkError)
                counts += event.properties().value(u"consecutive_errors"_s).toInt();
        }
        QCOMPARE(counts, QList<int>({1, 2, 3, 4, 5}));
    }

    void otherCancellationsAreRetriedAtOnce()
    {
        PollingFixture fixture;
        int cancellations = 3;
        fixture.failing = [&] {
            if (cancellations-- > 0)
                throw CancellationError();
        };
        fixture.start(1);
        QCOMPARE(fixture.polls(), 4);
        QCOMPARE(fixture.clock->requestedSleeps(), QList<double>{1});
        QCOMPARE(fixture.lineCount(u"Polling cancelled for ticket: t1"_s), 3);
        QVERIFY(!fixture.delegate->names().contains(TolvaneAnalyticsEvent::Errors::apiError));
    }

    void restartsWithOneLoop()
    {
        PollingFixture fixture;
        fixture.start(1);
        fixture.start(1);
        QCOMPARE(fixture.active(), QStringList{ticketId});
        QCOMPARE(fixture.clock->sleeperCount(), 1);
        QCOMPARE(fixture.delegate->names(), restarted);
        const qsizetype before = fixture.polls();
        fixture.clock->advance(5s);
        QCOMPARE(fixture.polls(), before + 5);
    }

    void aStoppedLoopHasNoEffect()
    {
        for (const bool isFailing : {false, true}) {
            for (const bool isReplaced : {false, true})
                stopWhileARequestRuns(isFailing, isReplaced);
        }
    }

    void aBroadcastDoesNotStopTheNextLoop()
    {
        PollingFixture fixture;
        fixture.start(1);
        fixture.messages += customer("m2");
        // The response to the customer's message comes just after the loop has fetched it.
        fixture.onBroadcast = [&fixture] {
            fixture.onBroadcast = nullptr;
            fixture.polling->startPolling(ticketId, 2);
        };
        fixture.clock->advance(1s);
        QCOMPARE(fixture.delegate->names(), restarted);
        QCOMPARE(fixture.active(), QStringList{ticketId});
        fixture.messages += agent("m3");
        fixture.clock->advance(1s);
        QCOMPARE(fixture.broadcastIds(), QStringList({u"m2"_s, u"m3"_s}));
    }

    void stopsOnABroadcastFromElsewhere()
    {
        using Info = NotificationCenter::UserInfo;
        const std::pair<Info, bool> cases[] = {
            {userInfo(agent("push")), true},
            {userInfo(makeMessage(u"x"_s, words::aiAgent, u"t2"_s)), false},
            {Info(QVariantMap{{u"id"_s, 7}}), false},
            {Info(), false}};
        for (const auto &[info, stops] : cases) {
            PollingFixture fixture;
            fixture.start(1);
            platform().notificationCenter->post(notifications::didReceiveMessage, info);
            settle();
            QCOMPARE(fixture.active().isEmpty(), stops);
            QCOMPARE(fixture.clock->sleeperCount(), stops ? 0 : 1);
        }
    }
};

QTEST_GUILESS_MAIN(PollingServiceTest)
#include "tst_pollingservice.moc"
