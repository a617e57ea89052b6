// SPDX-License-Identifier: MIT
#include "backend/apierror.h"
#include "platform/async/awaitfuture.h"
#include "state/notifications.h"
#include "state/pollingservice.h"
#include "state/ticketdata.h"
#include "testing/samplerecords.h"

#include <QtCore/QMetaMethod>
#include <QtTest/QTest>

#include <functional>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

using Chat = TolvaneAnalyticsEvent::Chat;
using Case = TicketData::State::Case;

namespace {

AttachmentDto file(const char *name, const char *bytes = "x")
{
    return {QString::fromLatin1(name), u"image/png"_s, bytes};
}

struct TicketFixture : Fixture
{
    explicit TicketFixture(std::optional<TicketPreviewDto> preview = makePreview())
        : store(std::make_shared<TicketData>(std::move(preview)))
    {
        setKey();
        session->handler = [this](const UrlRequest &request) {
            if (failing)
                throw APIError(APIError::serverError, "down");
            if (request.method == "POST" && !request.url.path().endsWith("create"_L1))
                return answer(sent);
            return answer(fetched);
        };
    }

    void run(QCoro::Task<> task)
    {
        detach(std::move(task));
        settle();
    }

    void notify(const MessageDto &message)
    {
        store->onMessageNotification(userInfo(message));
        settle();
    }

    QStringList messageIds() const
    {
        QStringList ids;
        for (const MessageDto &message : store->ticket()->messages)
            ids += message.id;
        return ids;
    }

    bool failing = false;
    TicketDto fetched = makeTicket({makeMessage(u"m1"_s)});
    MessageDto sent = makeMessage(u"m2"_s);
    std::shared_ptr<TicketData> store;
};

using Operation = std::function<void(TicketFixture &)>;

/// The names of the signals that the store emits, in order.
struct SignalLog
{
    explicit SignalLog(const TicketData &store)
    {
        const auto log = [&](auto signal) {
            const QString name = QString::fromLatin1(QMetaMethod::fromSignal(signal).name());
            QObject::connect(&store, signal, &m_lifetime, [this, name] { names += name; });
        };
        log(&TicketData::ticketChanged);
        log(&TicketData::messageChanged);
        log(&TicketData::attachmentsChanged);
        log(&TicketData::busyChanged);
        log(&TicketData::errorsChanged);
    }

    QStringList names;

private:
    QObject m_lifetime;
};

} // namespace

class TicketDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fetchShowsThePreviewThenTheTicket()
    {
        TicketFixture fixture;
        fixture.session->held = true;
        fixture.run(fixture.store->fetchTicket());
        const auto provisional = fixture.store->state().previewValue();
        QVERIFY(provisional && !fixture.store->state().value());
        QCOMPARE(provisional->assignee, u"unknown"_s);
        QCOMPARE(provisional->messages, QList{makePreview().lastMessage});
        fixture.session->release();
        QCOMPARE(fixture.store->state().value(), fixture.fetched);
        QVERIFY(!fixture.store->isFetchingTicket());
        const QVariantMap viewed = fixture.delegate->properties(Chat::ticketViewed);
        QCOMPARE(viewed.value(u"message_count"_s), 1);
        QCOMPARE(viewed.value(u"ticket_state"_s), u"open"_s);
        QCOMPARE(viewed.value(u"ticket_id"_s), u"t1"_s);
    }

    void fetchWithoutAnIdChangesNothing()
    {
        TicketFixture fixture{std::nullopt};
        const SignalLog changes(*fixture.store);
        fixture.run(fixture.store->fetchTicket());
        fixture.run(fixture.store->sendMessage());
        fixture.run(fixture.store->createTicket());
        QVERIFY(changes.names.isEmpty() && fixture.session->requests.isEmpty());
        QVERIFY(!fixture.store->hasAttemptedFetch());
    }

    void signalsNameWhatChanged_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QStringList>("expected");
        const QString ticket = u"ticketChanged"_s;
        const QString message = u"messageChanged"_s;
        const QString attachments = u"attachmentsChanged"_s;
        const QString busy = u"busyChanged"_s;
        const QString errors = u"errorsChanged"_s;
        const auto add = [](const char *name, Operation operation, const QStringList &expected) {
            QTest::newRow(name) << std::move(operation) << expected;
        };
        using Fixture = TicketFixture;
        add("text", [](Fixture &f) { f.store->setMessage(u"another"_s); }, {message});
        add("equal text", [](Fixture &f) { f.store->setMessage(u"draft"_s); }, {});
        add("attachment", [](Fixture &f) { f.store->setAttachments({file("b.png")}); },
            {attachments});
        add("equal attachments",
            [](Fixture &f) {
                f.store->setAttachments({file("a.png"), file("a.png")});
            },
            {});
        add("new ticket", [](Fixture &f) { f.store->setNewTicket(true); }, {ticket});
        add("visible fetch", [](Fixture &f) { f.run(f.store->fetchTicket()); },
            {busy, ticket, busy});
        add("silent fetch", [](Fixture &f) { f.run(f.store->silentFetchTicket()); }, {ticket});
        add("failing and repeated fetch",
            [](Fixture &f) {
                f.failing = true;
                f.run(f.store->fetchTicket());
                f.failing = false;
                f.run(f.store->silentFetchTicket());
            },
            {busy, errors, busy, errors, ticket});
        add("failing and repeated send",
            [](Fixture &f) {
                f.failing = true;
                f.run(f.store->sendMessage());
                f.failing = false;
                f.run(f.store->sendMessage());
            },
            {busy, errors, busy, errors, busy, ticket, message, attachments, busy});
        add("message", [](Fixture &f) { f.notify(makeMessage(u"r"_s, words::aiAgent)); }, {ticket});
        add("known message", [](Fixture &f) { f.notify(makeMessage(u"m1"_s)); }, {});
        add("state",
            [](Fixture &f) { f.store->onStateUpdateNotification(userInfo(makePreview())); },
            {ticket});
    }

    void signalsNameWhatChanged()
    {
        QFETCH(const Operation, operation);
        QFETCH(const QStringList, expected);
        TicketFixture fixture;
        fixture.run(fixture.store->fetchTicket());
        fixture.store->setMessage(u"draft"_s);
        fixture.store->setAttachments({file("a.png")});
        const SignalLog changes(*fixture.store);
        operation(fixture);
        QCOMPARE(changes.names, expected);
    }

    void aFailedFetchKeepsTheTicketUnderneath_data()
    {
        QTest::addColumn<bool>("silent");
        QTest::newRow("visible") << false;
        QTest::newRow("silent") << true;
    }

    void aFailedFetchKeepsTheTicketUnderneath()
    {
        QFETCH(const bool, silent);
        TicketFixture fixture;
        fixture.run(fixture.store->fetchTicket());
        fixture.delegate->events.clear();
        fixture.failing = true;
        fixture.run(silent ? fixture.store->silentFetchTicket() : fixture.store->fetchTicket());
        QCOMPARE(fixture.store->state().current(), Case::error);
        QVERIFY(fixture.store->ticket() && !fixture.store->isFetchingTicket());
        QVERIFY(fixture.log->lines.constLast().contains(
                    "Error fetching ticket: Server error: down"_L1) == silent);
        QCOMPARE(fixture.delegate->names(),
                 silent ? QStringList() : QStringList{u"tolvane_api_error"_s});
        fixture.failing = false;
        fixture.run(fixture.store->silentFetchTicket());
        QCOMPARE(fixture.store->state().current(), Case::loaded);
        QVERIFY(!fixture.delegate->names().contains(Chat::ticketViewed));
    }

    void createSendsOnceAndClears()
    {
        TicketFixture fixture{std::nullopt};
        QCOMPARE(fixture.store->state().current(), Case::loading);
        fixture.store->setNewTicket(true);
        QCOMPARE(fixture.store->state().current(), Case::empty);
        QVERIFY(!fixture.store->ticketId() && fixture.store->isSendDisabled());
        fixture.store->setAttachments({file("a.png")});
        QVERIFY(!fixture.store->isSendDisabled());
        // A family, a flag and two letters: four characters as people count them.
        fixture.store->setMessage(u"👨‍👩‍👧‍👦🇩🇪ab"_s);
        fixture.store->setAttachments(
            {file("b.png"), file("a.png"), file("b.png"), file("b.png", "y")});
        QCOMPARE(fixture.store->attachments().size(), 3);
        fixture.run(fixture.store->createTicket());

        const QByteArray body = fixture.session->requests.constFirst().body;
        const qsizetype first = body.indexOf("b.png");
        QVERIFY(first > 0 && first < body.indexOf("a.png"));
        QCOMPARE(fixture.broadcasts.constFirst().name, notifications::didSendMessage);
        QCOMPARE(*fixture.broadcasts.constFirst().userInfo,
                 QVariantMap({{u"ticketId"_s, u"t1"_s},
                              {u"message"_s, u"👨‍👩‍👧‍👦🇩🇪ab"_s}}));
        QCOMPARE(fixture.delegate->names().first(2),
                 QStringList({Chat::ticketCreated, Chat::messageSent}));
        for (const QString &name : {Chat::ticketCreated, Chat::messageSent}) {
            const QVariantMap properties = fixture.delegate->properties(name);
            QCOMPARE(properties.value(u"message_length"_s), 4);
            QCOMPARE(properties.value(u"attachment_count"_s), 3);
            QCOMPARE(properties.value(u"is_first_message"_s), true);
            QCOMPARE(properties.value(u"ticket_id"_s), u"t1"_s);
        }
        QVERIFY(fixture.store->message().isEmpty() && fixture.store->attachments().isEmpty());
        QVERIFY(!fixture.store->newTicket() && !fixture.store->isSendingMessage());
        QVERIFY(fixture.delegate->names().contains(u"polling_started"_s));
    }

    void sendAppendsTheResponse()
    {
        TicketFixture fixture;
        fixture.run(fixture.store->fetchTicket());
        fixture.store->setMessage(u"hi"_s);
        fixture.session->held = true;
        fixture.run(fixture.store->sendMessage());
        QVERIFY(fixture.store->isSendDisabled());
        QCOMPARE(fixture.messageIds(), QStringList{u"m1"_s});
        fixture.session->release();
        QCOMPARE(fixture.messageIds(), QStringList({u"m1"_s, u"m2"_s}));
        const QVariantMap dictionary = *fixture.broadcasts.constFirst().userInfo;
        QCOMPARE(dictionary.value(u"message"_s).value<MessageDto>(), fixture.sent);
        QCOMPARE(dictionary.value(u"messageId"_s), u"m2"_s);
        const QVariantMap properties = fixture.delegate->properties(Chat::messageSent);
        QCOMPARE(properties.value(u"is_first_message"_s), false);
        QCOMPARE(properties.value(u"message_id"_s), u"m2"_s);
        // The customer's own message is counted, so that polling does not report it as new.
        QCOMPARE(fixture.delegate->properties(u"polling_started"_s).value(u"message_count"_s), 2);
    }

    void aFailedSendCanBeRepeated_data()
    {
        QTest::addColumn<bool>("create");
        QTest::addColumn<QString>("context");
        QTest::newRow("create") << true << u"createTicket"_s;
        QTest::newRow("send") << false << u"sendMessage"_s;
    }

    void aFailedSendCanBeRepeated()
    {
        QFETCH(const bool, create);
        QFETCH(const QString, context);
        TicketFixture fixture;
        if (!create)
            fixture.run(fixture.store->fetchTicket());
        fixture.store->setNewTicket(create);
        fixture.store->setMessage(u" "_s);
        fixture.store->setAttachments({file("a.png")});
        const auto send = [&] {
            fixture.run(create ? fixture.store->createTicket() : fixture.store->sendMessage());
        };
        fixture.failing = true;
        send();
        QCOMPARE(fixture.store->message(), u" "_s);
        QCOMPARE(fixture.store->attachments(), QList{file("a.png")});
        QVERIFY(fixture.store->sendError() && !fixture.store->isSendDisabled());
        QCOMPARE(fixture.store->newTicket(), create);
        QVERIFY(fixture.broadcasts.isEmpty());
        QCOMPARE(fixture.delegate->events.constLast().properties().value(u"error_context"_s),
                 context);
        fixture.failing = false;
        send();
        QVERIFY(!fixture.store->sendError() && fixture.store->message().isEmpty());
    }

    void aiIsTyping_data()
    {
        QTest::addColumn<QString>("assignee");
        QTest::addColumn<QStringList>("senders");
        QTest::addColumn<bool>("typing");
        QTest::newRow("customer spoke") << words::aiAgent << QStringList{words::customer} << true;
        QTest::newRow("agent spoke")
            << words::aiAgent << QStringList{words::customer, words::aiAgent} << false;
        QTest::newRow("human has it") << words::humanAgent << QStringList{words::customer} << false;
        QTest::newRow("case counts") << u"AI agent"_s << QStringList{words::customer} << false;
        QTest::newRow("no messages") << words::aiAgent << QStringList() << false;
    }

    void aiIsTyping()
    {
        QFETCH(const QString, assignee);
        QFETCH(const QStringList, senders);
        QFETCH(const bool, typing);
        TicketFixture fixture;
        fixture.fetched.assignee = assignee;
        fixture.fetched.messages.clear();
        for (const QString &sender : senders)
            fixture.fetched.messages += makeMessage(u"m"_s, sender);
        QVERIFY(!fixture.store->isAITyping());
        fixture.run(fixture.store->fetchTicket());
        QCOMPARE(fixture.store->isAITyping(), typing);
    }

    void aNotifiedMessageArrivesOnceAndIsConfirmed()
    {
        TicketFixture fixture;
        fixture.run(fixture.store->fetchTicket());
        const MessageDto reply = makeMessage(u"r"_s, words::aiAgent);
        fixture.notify(reply);
        fixture.notify(reply);
        QCOMPARE(fixture.messageIds(), QStringList({u"m1"_s, u"r"_s}));
        QVERIFY(fixture.log->lines.constLast().endsWith(
            "Message r already exists in ticket, skipping duplicate"_L1));
        const QVariantMap properties = fixture.delegate->properties(Chat::messageReceived);
        QCOMPARE(properties.value(u"source"_s), u"ui_update"_s);
        QCOMPARE(properties.value(u"sender_type"_s), words::aiAgent);
        QCOMPARE(properties.value(u"is_duplicate"_s), false);
        // A burst is followed by one fetch.
        fixture.clock->advance(500ms);
        for (int i = 0; i < 20; ++i)
            fixture.notify(makeMessage(QString::number(i), words::aiAgent));
        fixture.clock->advance(500ms);
        QCOMPARE(fixture.session->requests.size(), 1);
        fixture.fetched.messages += makeMessage(u"confirmed"_s);
        fixture.clock->advance(5s);
        QCOMPARE(fixture.session->requests.size(), 2);
        QCOMPARE(fixture.messageIds(), QStringList({u"m1"_s, u"confirmed"_s}));
    }

    void aMessageBeforeTheTicketIsFetched()
    {
        TicketFixture fixture; // Only the preview is known.
        fixture.notify(makeMessage(u"r"_s, words::aiAgent));
        QVERIFY(!fixture.store->ticket());
        QVERIFY(fixture.delegate->names().contains(Chat::messageReceived));
        fixture.clock->advance(1s);
        QCOMPARE(fixture.messageIds(), QStringList{u"m1"_s});
    }

    void equalMessagesKeepTheSameList()
    {
        TicketFixture fixture;
        fixture.run(fixture.store->fetchTicket());
        const auto *known = fixture.store->ticket()->messages.constData();
        fixture.fetched.state = u"closed"_s;
        fixture.run(fixture.store->silentFetchTicket());
        QCOMPARE(fixture.store->ticket()->messages.constData(), known);
        QCOMPARE(fixture.store->ticket()->state, u"closed"_s);
        fixture.fetched.messages[0].isRead = true;
        fixture.run(fixture.store->silentFetchTicket());
        QVERIFY(fixture.store->ticket()->messages.constFirst().isRead);
    }

    void foreignNotificationsAreIgnored()
    {
        TicketFixture fixture;
        fixture.run(fixture.store->fetchTicket());
        fixture.delegate->events.clear();
        fixture.notify(makeMessage(u"x"_s, words::aiAgent, u"t2"_s));
        fixture.store->onMessageNotification({});
        fixture.store->onMessageNotification(QVariantMap{{u"id"_s, 5}});
        fixture.store->onStateUpdateNotification({});
        fixture.store->onStateUpdateNotification(userInfo(makePreview(u"t2"_s)));
        QCOMPARE(fixture.messageIds(), QStringList{u"m1"_s});
        QCOMPARE(fixture.store->preview(), makePreview());
        QVERIFY(fixture.delegate->events.isEmpty() && fixture.clock->sleeperCount() == 0);
    }

    void aStateUpdateReachesPreviewAndTicket()
    {
        TicketPreviewDto update = makePreview();
        update.state = u"closed"_s;
        TicketFixture fixture;
        fixture.run(fixture.store->fetchTicket());
        fixture.store->onStateUpdateNotification(userInfo(update));
        QCOMPARE(fixture.store->preview(), update);
        QCOMPARE(fixture.store->ticket()->state, u"closed"_s);

        TicketFixture fresh{std::nullopt}; // Created as a new ticket: no preview, no updates.
        fresh.store->setMessage(u"hi"_s);
        fresh.run(fresh.store->createTicket());
        fresh.store->onStateUpdateNotification(userInfo(update));
        QCOMPARE(fresh.store->ticket()->state, u"open"_s);
    }

    void aStoreLivesUntilItsWorkIsDone()
    {
        TicketFixture fixture;
        fixture.session->held = true;
        detach(fixture.store->fetchTicket());
        const std::weak_ptr<TicketData> store = fixture.store;
        fixture.store.reset();
        settle();
        QVERIFY(!store.expired());
        fixture.session->release();
        QVERIFY(store.expired());
        QVERIFY(fixture.delegate->names().contains(Chat::ticketViewed));
    }
};

QTEST_GUILESS_MAIN(TicketDataTest)
#include "tst_ticketdata.moc"
