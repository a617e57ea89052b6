// SPDX-License-Identifier: MIT
#include "backend/apierror.h"
#include "platform/async/await.h"
#include "state/notifications.h"
#include "state/pollingservice.h"
#include "state/ticketdata.h"
#include "testing/wire.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

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

struct Scene : Fixture
{
    explicit Scene(std::optional<TicketPreviewDto> preview = makePreview())
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
        store->onMessageNotification(tolvane::json::dictionary(message));
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

} // namespace

class TicketDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stateBeforeAnyFetch()
    {
        const Fixture fixture;
        TicketData store({});
        QCOMPARE(store.state().current(), Case::loading);
        store.setNewTicket(true);
        QCOMPARE(store.state().current(), Case::empty);
        QVERIFY(!store.ticketId());
    }

    void fetchShowsThePreviewThenTheTicket()
    {
        Scene scene;
        scene.session->held = true;
        scene.run(scene.store->fetchTicket());
        const auto provisional = scene.store->state().previewValue();
        QVERIFY(provisional && !scene.store->state().value());
        QCOMPARE(provisional->assignee, u"unknown"_s);
        QCOMPARE(provisional->messages, QList{makePreview().lastMessage});
        scene.session->release();
        QCOMPARE(scene.store->state().value(), scene.fetched);
        QVERIFY(!scene.store->isFetchingTicket());
        const QVariantMap viewed = scene.delegate->properties(Chat::ticketViewed);
        QCOMPARE(viewed.value(u"message_count"_s), 1);
        QCOMPARE(viewed.value(u"ticket_state"_s), u"open"_s);
        QCOMPARE(viewed.value(u"ticket_id"_s), u"t1"_s);
    }

    void fetchWithoutAnIdChangesNothing()
    {
        Scene scene{std::nullopt};
        const QSignalSpy changes(scene.store.get(), &TicketData::changed);
        scene.run(scene.store->fetchTicket());
        scene.run(scene.store->sendMessage());
        scene.run(scene.store->createTicket());
        QVERIFY(changes.isEmpty() && scene.session->requests.isEmpty());
        QVERIFY(!scene.store->hasAttemptedFetch());
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
        Scene scene;
        scene.run(scene.store->fetchTicket());
        scene.delegate->events.clear();
        scene.failing = true;
        scene.run(silent ? scene.store->silentFetchTicket() : scene.store->fetchTicket());
        QCOMPARE(scene.store->state().current(), Case::error);
        QVERIFY(scene.store->ticket() && !scene.store->isFetchingTicket());
        QVERIFY(scene.log->lines.constLast().contains(
                    "Error fetching ticket: Server error: down"_L1) == silent);
        QCOMPARE(scene.delegate->names(),
                 silent ? QStringList() : QStringList{u"tolvane_api_error"_s});
        scene.failing = false;
        scene.run(scene.store->silentFetchTicket());
        QCOMPARE(scene.store->state().current(), Case::loaded);
        QVERIFY(!scene.delegate->names().contains(Chat::ticketViewed));
    }

    void createSendsOnceAndClears()
    {
        Scene scene{std::nullopt};
        scene.store->setNewTicket(true);
        // A family, a flag and two letters: four characters as people count them.
        scene.store->setMessage(u"👨‍👩‍👧‍👦🇩🇪ab"_s);
        scene.store->setAttachments(
            {file("b.png"), file("a.png"), file("b.png"), file("b.png", "y")});
        QCOMPARE(scene.store->attachments().size(), 3);
        scene.run(scene.store->createTicket());

        const QByteArray body = scene.session->requests.constFirst().body;
        const qsizetype first = body.indexOf("b.png");
        QVERIFY(first > 0 && first < body.indexOf("a.png"));
        QCOMPARE(scene.broadcasts.constFirst().name, notifications::didSendMessage);
        QCOMPARE(*scene.broadcasts.constFirst().userInfo,
                 QVariantMap({{u"ticketId"_s, u"t1"_s},
                              {u"message"_s, u"👨‍👩‍👧‍👦🇩🇪ab"_s}}));
        QCOMPARE(scene.delegate->names().first(2),
                 QStringList({Chat::ticketCreated, Chat::messageSent}));
        for (const QString &name : {Chat::ticketCreated, Chat::messageSent}) {
            const QVariantMap properties = scene.delegate->properties(name);
            QCOMPARE(properties.value(u"message_length"_s), 4);
            QCOMPARE(properties.value(u"attachment_count"_s), 3);
            QCOMPARE(properties.value(u"is_first_message"_s), true);
            QCOMPARE(properties.value(u"ticket_id"_s), u"t1"_s);
        }
        QVERIFY(scene.store->message().isEmpty() && scene.store->attachments().isEmpty());
        QVERIFY(!scene.store->newTicket() && !scene.store->isSendingMessage());
        QVERIFY(scene.delegate->names().contains(u"polling_started"_s));
    }

    void sendAppendsTheResponse()
    {
        Scene scene;
        scene.run(scene.store->fetchTicket());
        scene.store->setMessage(u"hi"_s);
        scene.session->held = true;
        scene.run(scene.store->sendMessage());
        QVERIFY(scene.store->isSendDisabled());
        QCOMPARE(scene.messageIds(), QStringList{u"m1"_s});
        scene.session->release();
        QCOMPARE(scene.messageIds(), QStringList({u"m1"_s, u"m2"_s}));
        const QVariantMap userInfo = *scene.broadcasts.constFirst().userInfo;
        QCOMPARE(userInfo.value(u"message"_s).value<MessageDto>(), scene.sent);
        QCOMPARE(userInfo.value(u"messageId"_s), u"m2"_s);
        const QVariantMap properties = scene.delegate->properties(Chat::messageSent);
        QCOMPARE(properties.value(u"is_first_message"_s), false);
        QCOMPARE(properties.value(u"message_id"_s), u"m2"_s);
        // The customer's own message is counted, so that polling does not report it as new.
        QCOMPARE(scene.delegate->properties(u"polling_started"_s).value(u"message_count"_s), 2);
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
        Scene scene;
        if (!create)
            scene.run(scene.store->fetchTicket());
        scene.store->setNewTicket(create);
        scene.store->setMessage(u" "_s);
        scene.store->setAttachments({file("a.png")});
        const auto send = [&] {
            scene.run(create ? scene.store->createTicket() : scene.store->sendMessage());
        };
        scene.failing = true;
        send();
        QCOMPARE(scene.store->message(), u" "_s);
        QCOMPARE(scene.store->attachments(), QList{file("a.png")});
        QVERIFY(scene.store->sendError() && !scene.store->isSendDisabled());
        QCOMPARE(scene.store->newTicket(), create);
        QVERIFY(scene.broadcasts.isEmpty());
        QCOMPARE(scene.delegate->events.constLast().properties().value(u"error_context"_s),
                 context);
        scene.failing = false;
        send();
        QVERIFY(!scene.store->sendError() && scene.store->message().isEmpty());
    }

    void sendIsDisabled_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("attachment");
        QTest::addColumn<bool>("disabled");
        QTest::newRow("nothing") << QString() << false << true;
        QTest::newRow("white space counts") << u" "_s << false << false;
        QTest::newRow("attachment alone") << QString() << true << false;
    }

    void sendIsDisabled()
    {
        QFETCH(const QString, message);
        QFETCH(const bool, attachment);
        QFETCH(const bool, disabled);
        const Fixture fixture;
        TicketData store({});
        store.setMessage(message);
        if (attachment)
            store.setAttachments({file("a.png")});
        QCOMPARE(store.isSendDisabled(), disabled);
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
        Scene scene;
        scene.fetched.assignee = assignee;
        scene.fetched.messages.clear();
        for (const QString &sender : senders)
            scene.fetched.messages += makeMessage(u"m"_s, sender);
        QVERIFY(!scene.store->isAITyping());
        scene.run(scene.store->fetchTicket());
        QCOMPARE(scene.store->isAITyping(), typing);
    }

    void aNotifiedMessageArrivesOnceAndIsConfirmed()
    {
        Scene scene;
        scene.run(scene.store->fetchTicket());
        const MessageDto reply = makeMessage(u"r"_s, words::aiAgent);
        scene.notify(reply);
        scene.notify(reply);
        QCOMPARE(scene.messageIds(), QStringList({u"m1"_s, u"r"_s}));
        QVERIFY(scene.log->lines.constLast().endsWith(
            "Message r already exists in ticket, skipping duplicate"_L1));
        const QVariantMap properties = scene.delegate->properties(Chat::messageReceived);
        QCOMPARE(properties.value(u"source"_s), u"ui_update"_s);
        QCOMPARE(properties.value(u"sender_type"_s), words::aiAgent);
        QCOMPARE(properties.value(u"is_duplicate"_s), false);
        QCOMPARE(scene.session->requests.size(), 1);
        scene.fetched.messages += makeMessage(u"confirmed"_s);
        scene.clock->advance(1s);
        QCOMPARE(scene.session->requests.size(), 2);
        QCOMPARE(scene.messageIds(), QStringList({u"m1"_s, u"confirmed"_s}));
    }

    void equalMessagesKeepTheSameList()
    {
        Scene scene;
        scene.run(scene.store->fetchTicket());
        const auto *known = scene.store->ticket()->messages.constData();
        scene.fetched.state = u"closed"_s;
        scene.run(scene.store->silentFetchTicket());
        QCOMPARE(scene.store->ticket()->messages.constData(), known);
        QCOMPARE(scene.store->ticket()->state, u"closed"_s);
        scene.fetched.messages[0].isRead = true;
        scene.run(scene.store->silentFetchTicket());
        QVERIFY(scene.store->ticket()->messages.constFirst().isRead);
    }

    void foreignNotificationsAreIgnored()
    {
        Scene scene;
        scene.run(scene.store->fetchTicket());
        scene.delegate->events.clear();
        scene.notify(makeMessage(u"x"_s, words::aiAgent, u"t2"_s));
        scene.store->onMessageNotification(std::nullopt);
        scene.store->onMessageNotification(QVariantMap{{u"id"_s, 5}});
        scene.store->onStateUpdateNotification(std::nullopt);
        scene.store->onStateUpdateNotification(tolvane::json::dictionary(makePreview(u"t2"_s)));
        QCOMPARE(scene.messageIds(), QStringList{u"m1"_s});
        QCOMPARE(scene.store->preview(), makePreview());
        QVERIFY(scene.delegate->events.isEmpty() && scene.clock->sleeperCount() == 0);
    }

    void aStateUpdateReachesPreviewAndTicket()
    {
        TicketPreviewDto update = makePreview();
        update.state = u"closed"_s;
        Scene scene;
        scene.run(scene.store->fetchTicket());
        scene.store->onStateUpdateNotification(tolvane::json::dictionary(update));
        QCOMPARE(scene.store->preview(), update);
        QCOMPARE(scene.store->ticket()->state, u"closed"_s);

        Scene fresh{std::nullopt}; // Created as a new ticket: no preview, no updates.
        fresh.store->setMessage(u"hi"_s);
        fresh.run(fresh.store->createTicket());
        fresh.store->onStateUpdateNotification(tolvane::json::dictionary(update));
        QCOMPARE(fresh.store->ticket()->state, u"open"_s);
    }

    void aStoreLivesUntilItsWorkIsDone()
    {
        Scene scene;
        scene.session->held = true;
        detach(scene.store->fetchTicket());
        const std::weak_ptr<TicketData> store = scene.store;
        scene.store.reset();
        settle();
        QVERIFY(!store.expired());
        scene.session->release();
        QVERIFY(store.expired());
        QVERIFY(scene.delegate->names().contains(Chat::ticketViewed));
    }
};

QTEST_GUILESS_MAIN(TicketDataTest)
#include "tst_ticketdata.moc"
