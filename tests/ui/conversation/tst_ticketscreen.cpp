// SPDX-License-Identifier: MIT
// A conversation's screen within the messenger, used by mouse and keyboard.
#include "platform/logger.h"
#include "testing/ui/messengerfixture.h"
#include "testing/ui/samples.h"
#include "testing/ui/uirobot.h"
#include "ui/conversation/ticketscreendata.h"
#include "ui/images/imagecache.h"
#include "ui/kit/keyboard.h"
#include "ui/tickets/ticketrow.h"

#include <QtQml/QQmlEngine>

using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

namespace {

const QString photo = u"https://cdn.example/photo.png"_s;

MessageDto makeNamedMessage(const QString &id, const QString &type, const QString &name = {})
{
    MessageDto message = makeMessage(id, type);
    if (!name.isNull())
        message.sender.name = name;
    return message;
}

/// The messenger with the ticket "t1" in its list.
struct TicketScreenFixture : MessengerFixture
{
    TicketScreenFixture()
    {
        ticket.messages[0].attachments = {photo};
        session->handler = [this](const UrlRequest &request) -> UrlResponse {
            const QString path = request.url.path();
            if (path.endsWith(u"/settings"_s))
                return jsonResponse(sampleBranding());
            if (path.endsWith(u"/tickets"_s))
                return test::json(listJson);
            if (request.url == QUrl(photo))
                return pictureResponse({9, 9});
            if (isFailing)
                throw UrlError(UrlError::notConnectedToInternet);
            return jsonResponse(ticket);
        };
        setTickets({u"t1"_s});
    }

    /// Opens the messenger and clicks the row or button.
    void open(QAccessible::Role role = QAccessible::ListItem,
              const QString &name = u"text of last"_s)
    {
        QVERIFY(showHost());
        loadSettings();
        TolvaneViewController::present();
        click(role, name);
    }

    void click(QAccessible::Role role, const QString &name)
    {
        robot.click(robot.find(role, name));
        settle();
    }

    static QQuickItem *ofType(QQuickItem *in, const char *type)
    {
        if (!in || QByteArray(in->metaObject()->className()).startsWith(type))
            return in;
        for (QQuickItem *child : in->childItems()) {
            if (QQuickItem *found = ofType(child, type))
                return found;
        }
        return nullptr;
    }
    QQuickItem *ofType(const char *type) const { return ofType(messenger(), type); }

    TicketScreenData *screen() const
    {
        QQuickItem *item = ofType("TicketScreen_");
        return item ? item->findChild<TicketScreenData *>() : nullptr;
    }
    bool hasViewer() const { return ofType("ImageViewer_"); }

    qsizetype fetches() const
    {
        return std::ranges::count_if(session->requests, [](const UrlRequest &request) {
            return request.method == "GET" && request.url.path().endsWith(u"/ticket/t1"_s);
        });
    }
    qsizetype views() const
    {
        return delegate->names().count(TolvaneAnalyticsEvent::Chat::ticketViewed);
    }

    template <typename Record>
    void push(const QString &name, const Record &record)
    {
        platform().notificationCenter->post(name, userInfo(record));
        settle();
    }

    UiRobot robot{host};
    TicketDto ticket = makeTicket(
        {makeNamedMessage(u"m1"_s, words::customer), makeNamedMessage(u"m2"_s, words::humanAgent)});
};

} // namespace

class TicketScreenTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyTheFirstFetchShows()
    {
        TicketScreenFixture fixture;
        fixture.open(QAccessible::Button, u"Send us a message"_s); // Loads the list, but no ticket.
        QTest::keyClick(&fixture.host, Qt::Key_Escape);
        QTRY_VERIFY(!fixture.screen());
        fixture.session->held = true;
        fixture.click(QAccessible::ListItem, u"text of last"_s);
        QTRY_VERIFY(fixture.screen());
        QCOMPARE(fixture.screen()->state(), u"loadingWithPreview"_s);
        QVERIFY(fixture.ofType("TicketMessagesSkeletonView"));
        QCOMPARE(fixture.screen()->preview()->rowCount(), 1);
        QCOMPARE(fixture.views(), 0);
        fixture.session->held = false;
        fixture.session->release();
        settle();
        QCOMPARE(fixture.screen()->state(), u"loaded"_s);
        QCOMPARE(fixture.views(), 1);

        // The screen and its draft are kept under the viewer.
        fixture.robot.type(u"draft"_s);
        QStringList states;
        connect(fixture.screen(), &TicketScreenData::stateChanged, fixture.screen(),
                [&] { states += fixture.screen()->state(); });
        for (int round = 1; round <= 2; ++round) { // The same picture, twice.
            fixture.click(QAccessible::Button, u"accessibility_attachment"_s);
            QTRY_VERIFY(fixture.hasViewer());
            QCOMPARE(fixture.fetches(), round);
            QTest::keyClick(&fixture.host, Qt::Key_Escape);
            settle();
            QCOMPARE(fixture.fetches(), round + 1);
            QTRY_VERIFY(!fixture.hasViewer());
        }
        states.removeAll(u"loaded"_s);
        QCOMPARE(states, QStringList());
        QCOMPARE(fixture.screen()->composer()->message(), u"draft"_s);
        QCOMPARE(fixture.views(), 1);
    }

    void aNewConversation()
    {
        TicketScreenFixture fixture;
        fixture.open(QAccessible::Button, u"Send us a message"_s);
        QTRY_VERIFY(fixture.screen());
        QCOMPARE(fixture.screen()->state(), u"empty"_s);
        QCOMPARE(fixture.fetches(), 0);
        QQuickItem *hint = fixture.find(u"ticket_new_hint"_s);
        QQuickItem *composer = fixture.ofType("TicketComposer");
        QVERIFY(hint && composer);
        // The hint is centred in the space that is left above the composer.
        fixture.host.resize(400, 420);
        QTRY_VERIFY(hint->mapToScene({0, hint->height()}).y() <= composer->mapToScene({}).y());

        fixture.robot.type(u"hello"_s);
        QTest::keyClick(&fixture.host, Qt::Key_Escape);
        QTRY_VERIFY(!fixture.screen());
        QVERIFY(fixture.find(u"ticket_draft · We typically"_s));
        fixture.click(QAccessible::Button, u"Send us a message"_s);
        QTRY_VERIFY(fixture.screen());
        QTest::keyClick(&fixture.host, Qt::Key_Return, Qt::ControlModifier);
        settle();
        QCOMPARE(fixture.screen()->state(), u"loaded"_s);
        QCOMPARE(fixture.screen()->messages()->rowCount(), 2);
        QCOMPARE(fixture.views(), 0);
        // It remains a new conversation: it keeps the title and ignores updates of the state.
        QCOMPARE(fixture.screen()->title(), u"ticket_new_discussion"_s);
        QCOMPARE(fixture.screen()->subtitle(), QString());
        TicketPreviewDto update = makePreview();
        update.state = words::closed;
        fixture.push(notifications::didReceiveStateUpdate, update);
        QCOMPARE(fixture.screen()->ticketState(), u"open"_s);
    }

    void aSwipeFromTheEdgeGoesBack()
    {
        const std::unique_ptr<QPointingDevice> touchScreen(
            QTest::createTouchDevice(QInputDevice::DeviceType::TouchScreen));
        TicketScreenFixture fixture;
        fixture.open();
        for (const int start : {100, 5}) {
            fixture.robot.waitForAnimations();
            auto finger = QTest::touchEvent(&fixture.host, touchScreen.get(), false);
            finger.press(0, QPoint(start, 300)).commit();
            for (int x = start; x < start + 200; x += 20) {
                finger.move(0, QPoint(x, 300)).commit();
                QTest::qWait(20);
            }
            finger.release(0, QPoint(start + 200, 300)).commit();
            fixture.robot.waitForAnimations();
            QCOMPARE(fixture.screen() != nullptr, start == 100);
        }
    }

    void theHeader()
    {
        const MessageDto customer = makeNamedMessage(u"m1"_s, words::customer, u"Ada"_s);
        const MessageDto nora = makeNamedMessage(u"m2"_s, words::humanAgent, u"Nora"_s);
        const MessageDto ai = makeNamedMessage(u"m3"_s, words::aiAgent, u"Robo"_s);
        const MessageDto nobody = makeNamedMessage(u"m4"_s, words::humanAgent);
        const MessageDto blank = makeNamedMessage(u"m5"_s, words::humanAgent, u""_s);
        const QStringList week = {u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s,
                                  u"Fri"_s, u"Sat"_s, u"Sun"_s};
        const auto hours = [&](const char *end, const QStringList &days) {
            return QList<ScheduleDto>{
                {u"s"_s, u"2020-01-01T00:00:00Z"_s, QLatin1String(end), days}};
        };
        const auto always = hours("2020-01-01T23:59:00Z", week);
        const auto never = hours("2020-01-01T23:59:00Z", {u"monday"_s});
        const QString isolatedNora = u"\u2068Nora\u2069"_s;
        const MessageDto twoLines = makeNamedMessage(u"m6"_s, words::humanAgent, u"No\n\u202era"_s);
        const QString support = u"ticket_support"_s;
        const QString team = u"ticket_support_team"_s;
        const QString open = u"ticket_cs_available"_s;
        const QString closed = u"ticket_cs_not_available"_s;
        struct Case
        {
            bool isKnown;
            bool isFetched;
            QList<MessageDto> messages;
            QList<ScheduleDto> schedules;
            QString title;
            QString subtitle;
            bool isAvailable;
        };
        const Case cases[] = {
            {false, true, {customer, nora}, always, u"ticket_new_discussion"_s, {}, false},
            {true, false, {}, always, support, team, false},
            {true, true, {customer}, {}, support, team, false},
            {true, true, {nora, ai, customer}, always, u"\u2068Robo\u2069"_s, open, true},
            {true, true, {ai, nora}, never, isolatedNora, closed, false},
            {true, true, {nora, nobody}, always, isolatedNora, open, true},
            {true, true, {twoLines}, always, u"\u2068No ra\u2069"_s, open, true},
            {true, true, {nora, blank}, always, {}, open, true},
            {true, true, {customer, nobody}, always, support, open, true},
            {true, true, {}, never, support, closed, false}};
        for (const Case &each : cases) {
            TicketScreenFixture fixture;
            fixture.device->timeZone = u"UTC"_s;
            fixture.ticket.messages = each.messages;
            fixture.ticket.schedules = each.schedules;
            TicketScreenData screen;
            screen.setDestination(each.isKnown ? TolvaneDestination::ticket(makePreview())
                                               : TolvaneDestination::newTicket());
            if (each.isFetched && each.isKnown)
                screen.appear();
            screen.composer()->setMessage(u"hello"_s);
            if (!each.isKnown)
                screen.composer()->send();
            settle();
            QCOMPARE(screen.messages()->rowCount() > 0, each.isFetched && !each.messages.isEmpty());
            QCOMPARE(screen.title(), each.title);
            QCOMPARE(screen.subtitle(), each.subtitle);
            QCOMPARE(screen.isSupportAvailable(), each.isAvailable);
        }
    }

    void aFailureShowsUntilALaterFetch()
    {
        TicketScreenFixture fixture;
        fixture.isFailing = true;
        fixture.open();
        QTRY_VERIFY(fixture.screen());
        QTRY_COMPARE(fixture.screen()->state(), u"error"_s);
        QTRY_VERIFY(fixture.find(u"Something went wrong"_s));
        QVERIFY(fixture.find(fixture.screen()->errorText()));
        QVERIFY(!fixture.screen()->errorText().isEmpty());
        fixture.isFailing = false;
        fixture.push(notifications::didReceiveMessage,
                     makeNamedMessage(u"m2"_s, words::humanAgent));
        QCOMPARE(fixture.screen()->state(), u"error"_s);
        fixture.clock->advance(1s);
        QCOMPARE(fixture.screen()->state(), u"loaded"_s);
        QTRY_VERIFY(!fixture.find(u"Something went wrong"_s));
        QCOMPARE(fixture.views(), 0); // A silent fetch does not count as a view.

        fixture.isFailing = true;
        fixture.push(notifications::didReceiveMessage,
                     makeNamedMessage(u"m3"_s, words::humanAgent));
        fixture.clock->advance(1s);
        QCOMPARE(fixture.screen()->state(), u"error"_s);
        fixture.isFailing = false;
        fixture.clock->advance(2s); // It is fetched again by itself.
        QCOMPARE(fixture.screen()->state(), u"loaded"_s);

        using Do = void (*)(TicketScreenFixture &);
        const std::pair<const char *, Do> ways[] = {
            {"key", [](auto &f) { f.robot.press(Qt::Key_F5); }},
            {"wheel", [](auto &f) { f.robot.turnWheel(3); }},
            {"pull",
             [](auto &f) {
                 f.robot.drag({200, 200}, {0, 300});
                 QTest::qWait(300);
                 f.robot.release();
             }},
            {"button", [](auto &f) { f.click(QAccessible::Button, u"error_retry"_s); }}};
        for (const auto &[name, act] : ways) {
            fixture.isFailing = true;
            fixture.robot.press(Qt::Key_F5);
            QTRY_COMPARE(fixture.screen()->state(), u"error"_s);
            fixture.isFailing = false;
            act(fixture);
            QTRY_VERIFY2(fixture.screen()->state() == u"loaded"_s, name);
        }
    }

    void theKeyboardScrollsToTheEnd()
    {
        TicketScreenFixture fixture;
        for (int i = 3; i < 30; ++i)
            fixture.ticket.messages += makeNamedMessage(QString::number(i), words::humanAgent);
        fixture.open();
        QTRY_VERIFY(fixture.screen() && fixture.screen()->state() == u"loaded"_s);
        auto *keyboard =
            qmlEngine(fixture.messenger())
                ->singletonInstance<Keyboard *>(qmlTypeId("Tolvane.Private", 1, 0, "Keyboard"));
        QQuickItem *list = fixture.ofType("tolvane::AnchoredList");
        const auto gap = [&] {
            return list->property("end").toReal() - list->property("contentY").toReal();
        };
        const auto scrollUp = [&] {
            QMetaObject::invokeMethod(list, "scrollBy", Q_ARG(double, -900), Q_ARG(int, 0));
            return QTest::qWaitFor([&] { return gap() > 1; });
        };
        QTRY_VERIFY(gap() < 1);
        QVERIFY(scrollUp());
        keyboard->setArea({0, 400, 400, 300});
        QTRY_VERIFY(gap() < 1 && fixture.ofType("TicketComposer")->mapToScene({}).y() < 400);
        QVERIFY(scrollUp());
        keyboard->setArea({0, 380, 400, 320}); // It only grows,
        keyboard->setArea({});                 // and is hidden.
        QTest::qWait(400);
        QVERIFY(gap() > 1);
    }

    void errorsOfServersAreOneParagraph()
    {
        TicketScreenFixture fixture;
        UrlResponse failure = {.status = 500, .headers = {}, .body = {}};
        fixture.session->handler = [&](const UrlRequest &) { return failure; };
        for (const auto &[body, text] : QList<QPair<QByteArray, QString>>{
                 {"not\n\n now", u"Server error: not now"_s},
                 {" <html>Bad gateway", u"error_response"_s},
                 {R"({"error": "id"})", u"error_response"_s},
                 {QByteArray(300, 'x'), u"Server error: "_s + QString(185, u'x') + u'…'},
                 {QByteArray(5000, 'x'), u"error_response"_s}}) {
            failure.body = body;
            TicketScreenData screen;
            screen.setDestination(TolvaneDestination::ticket(makePreview()));
            screen.appear();
            settle();
            QCOMPARE(screen.errorText(), text);
        }
    }

    void anUnsentMessageIsKept()
    {
        TicketScreenFixture fixture;
        QStringList posts;
        fixture.session->handler = [&, next = fixture.session->handler](const UrlRequest &request) {
            if (request.method == "POST" && !fixture.isFailing) {
                posts += request.url.path();
                return jsonResponse(makeMessage(u"m3"_s));
            }
            return next(request);
        };
        fixture.isFailing = true;
        const auto destination = TolvaneDestination::ticket(makePreview());
        {
            TicketScreenData screen;
            screen.setDestination(destination);
            screen.appear();
            settle();
            screen.composer()->setMessage(u"draft"_s);
            screen.composer()->send();
            settle();
            QCOMPARE(screen.composer()->sendErrorText(), u"error_offline"_s);
            screen.composer()->setMessage(u"draft!"_s);
            QCOMPARE(screen.composer()->sendErrorText(), QString());
        }
        QVERIFY(ticketrow::caption(makePreview()).startsWith(u"ticket_draft"_s));
        TicketScreenData other;
        other.setDestination(TolvaneDestination::newTicket());
        QCOMPARE(other.composer()->message(), QString());
        TicketScreenData screen;
        screen.setDestination(destination);
        QCOMPARE(screen.composer()->message(), u"draft!"_s);
        // The ticket was never loaded; still, no other conversation begins.
        fixture.isFailing = false;
        screen.composer()->send();
        settle();
        QVERIFY(posts.size() == 1 && !posts.constFirst().endsWith(u"create"_s));
        QCOMPARE(screen.messages()->rowCount(), 3);
        QVERIFY(!ticketrow::caption(makePreview()).startsWith(u"ticket_draft"_s));
    }
};

QTEST_MAIN(TicketScreenTest)
#include "tst_ticketscreen.moc"
