// SPDX-License-Identifier: MIT
#include "backend/apierror.h"
#include "platform/async/awaitfuture.h"
#include "state/notifications.h"
#include "state/pollingservice.h"
#include "state/ticketdata.h"
#include "testing/samplerecords.h"

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
                return jsonResponse(sent);
            return jsonResponse(fetched);
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

    void aFailedFetchKeepsTheTicketUnderneath()
    {
        for (const bool silent : {false, true}) {
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

    void aFailedSendCanBeRepeated()
    {
        for (const bool create : {true, false}) {
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
                     create ? u"createTicket"_s : u"sendMessage"_s);
            fixture.failing = false;
            send();
            QVERIFY(!fixture.store->sendError() && fixture.store->message().isEmpty());
        }
    }

    void aiIsTyping()
    {
        const std::tuple<QString, QStringList, bool> cases[] = {
            {words::aiAgent, {words::customer}, true},
            {words::aiAgent, {words::customer, words::aiAgent}, false},
            {words::humanAgent, {words::customer}, false},
            {u"AI agent"_s, {words::customer}, false}, // Case counts.
            {words::aiAgent, {}, false}};
        for (const auto &[assignee, senders, isTyping] : cases) {
            TicketFixture fixture;
            fixture.fetched.assignee = assignee;
            fixture.fetched.messages.clear();
            for (const QString &sender : senders)
                fixture.fetched.messages += makeMessage(u"m"_s, sender);
            fixture.run(fixture.store->fetchTicket());
            QCOMPARE(fixture.store->isAITyping(), isTyping);
        }
    }

    void aNotifiedMessageArrivesOnceAndIsConfirmed()
    {
        TicketFixture fixture;
        fixture.run(fixture.store->fetchTicket());
        const int generation = fixture.store->messagesGeneration();
        fixture.run(fixture.store->silentFetchTicket());
        fixture.session->requests.clear();
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
        QCOMPARE(fixture.session->requests.size(), 0);
        QCOMPARE(fixture.store->messagesGeneration(), generation);
        fixture.fetched.messages += makeMessage(u"confirmed"_s);
        fixture.clock->advance(5s);
        QCOMPARE(fixture.session->requests.size(), 1);
        QCOMPARE(fixture.messageIds(), QStringList({u"m1"_s, u"confirmed"_s}));
        QVERIFY(fixture.store->messagesGeneration() != generation);
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
        for (const bool isFetching : {false, true}) {
            TicketFixture fixture;
            fixture.session->held = isFetching;
            fixture.run(fixture.store->fetchTicket());
            fixture.store->onStateUpdateNotification(userInfo(update));
            // A response that is older than the update does not undo it, a later one counts.
            if (isFetching)
                fixture.session->release();
            QCOMPARE(fixture.store->preview(), update);
            QCOMPARE(fixture.store->ticket()->state, u"closed"_s);
            fixture.session->held = false;
            fixture.run(fixture.store->silentFetchTicket());
            QCOMPARE(fixture.store->ticket()->state, u"open"_s);
        }

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
