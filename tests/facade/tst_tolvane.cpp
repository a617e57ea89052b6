// SPDX-License-Identifier: MIT
#include "analytics/manager.h"
#include "backend/persistentstore.h"
#include "base/errors.h"
#include "base/ulid.h"
#include "platform/async/awaitfuture.h"
#include "state/notifications.h"
#include "state/pollingservice.h"
#include "state/sdkdata.h"
#include "state/ticketdata.h"
#include "testing/samplerecords.h"

#include <tolvane/tolvane.h>
#include <tolvane/version.h>

#include <QtCore/QThread>
#include <QtTest/QTest>

#include <cstring>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

using Event = TolvaneAnalyticsEvent;

namespace {

const QString notInitialized = u"Tolvane is not initialized"_s;

struct FacadeFixture : Fixture
{
    FacadeFixture()
    {
        session->handler = [this](const UrlRequest &) {
            if (failing)
                throw UrlError(UrlError::notConnectedToInternet);
            return test::json("{}", 304);
        };
        platform().present = [this] {
            if (delegate)
                presentations += delegate->names();
        };
    }

    void initialize()
    {
        Tolvane::initialize(u"key"_s);
        settle();
        forget();
    }

    void forget()
    {
        delegate->events.clear();
        log->lines.clear();
        session->requests.clear();
    }

    /// The log lines without category, level and time.
    QStringList texts() const
    {
        QStringList texts;
        for (const QString &line : log->lines)
            texts += line.section(u"] "_s, 3);
        return texts.filter(QRegularExpression(u"^(?!Analytics event)"_s));
    }

    bool failing = false;
    QStringList presentations; ///< The events sent before each presentation.
};

QVariantMap push(const QVariantMap &content = {}, const QVariant &source = u"tolvane"_s)
{
    QVariantMap payload = content;
    payload.insert(u"source"_s, source);
    return payload;
}

const QVariantMap messageContent = {
    {u"id"_s, u"m"_s}, {u"ticketId"_s, u"t"_s}, {u"odd"_s, QVariantList{1, QVariant(), 2.5}}};

struct ThrowingDelegate final : TolvaneAnalyticsDelegate
{
    void didReceiveEvent(const Event &) override { throw std::runtime_error("host"); }
};

struct SelfRemovingDelegate final : TolvaneAnalyticsDelegate
{
    void didReceiveEvent(const Event &) override
    {
        Tolvane::setAnalyticsDelegate(nullptr);
        self->reset();
        ++calls;
    }
    std::shared_ptr<TolvaneAnalyticsDelegate> *self = nullptr;
    int calls = 0;
};

void update(const std::optional<QString> &email, const std::optional<QString> &originalId,
            const QString &line, const QByteArray &body)
{
    FacadeFixture fixture;
    persistentstore::setCustomerId(u"mine"_s);
    persistentstore::setCustomerOriginalId(u"before"_s);
    fixture.initialize();
    fixture.session->handler = [](const UrlRequest &) { return test::json("ignored"); };
    const QFuture<void> done = Tolvane::updateCustomer(email, originalId);
    QCOMPARE(persistentstore::customerOriginalId(), originalId); // Before the response.
    settle();
    QVERIFY(done.isFinished() && !done.isCanceled());
    QCOMPARE(fixture.session->requests.constFirst().body, body);
    QCOMPARE(fixture.texts(), QStringList{line});
    const QVariantMap properties = fixture.delegate->properties(Event::Lifecycle::customerUpdated);
    QCOMPARE(properties.value(u"has_email"_s), email.has_value());
    QCOMPARE(properties.value(u"has_original_id"_s), originalId.has_value());
}

void route(const QVariantMap &content, const QString &broadcast, const QVariantMap &userInfo,
           bool isCounted)
{
    for (const bool isOpen : {false, true}) {
        FacadeFixture fixture;
        fixture.initialize();
        SdkData::shared();
        platform().notificationCenter->post(notifications::didChangeState,
                                            QVariantMap{{u"open"_s, isOpen}});
        fixture.broadcasts.clear();
        if (isOpen)
            QCOMPARE(Tolvane::willPresentNotification(push(content)), PresentationOptions::sound);
        else
            Tolvane::handlePushNotification(push(content));
        QCOMPARE(fixture.broadcasts.size(), broadcast.isEmpty() ? 0 : 1);
        if (!broadcast.isEmpty()) {
            QCOMPARE(fixture.broadcasts.constFirst().name, broadcast);
            QCOMPARE(fixture.broadcasts.constFirst().userInfo, userInfo);
        }
        QStringList events =
            isOpen ? QStringList{Event::Notifications::pushReceived} : QStringList();
        events += Event::Notifications::pushTapped;
        if (!isOpen)
            events += Event::Chat::opened;
        QCOMPARE(fixture.presentations, isOpen ? QStringList() : events);
        if (isCounted)
            events += Event::Chat::messageReceived;
        QCOMPARE(fixture.delegate->names(), events);
    }
}

} // namespace

class TolvaneTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initializeInOrder()
    {
        FacadeFixture fixture;
        Tolvane::initialize(QString()); // An empty key is valid.
        QCOMPARE(fixture.session->requests.size(), 0);
        const auto id = persistentstore::customerId();
        QVERIFY(id && ULID::parse(*id));
        QCOMPARE(fixture.texts(),
                 QStringList({u"New customer ID generated: "_s + *id, u"SDK initialized"_s}));
        QCOMPARE(fixture.delegate->names(), QStringList{Event::Lifecycle::sdkInitialized});
        const Event event = fixture.delegate->events.constFirst();
        QCOMPARE(event.properties(), QVariantMap({{u"action_type"_s, u"lifecycle"_s},
                                                  {u"device_model"_s, u"Test Model"_s},
                                                  {u"os_version"_s, u"12.4"_s}}));
        QCOMPARE(event.customerId(), id);
        QVERIFY(!event.originalCustomerId());
        QCOMPARE(event.environment(), u"production"_s);
        QCOMPARE(event.sdkVersion(), u"0.1.0"_s);
        settle();
        QVERIFY(SdkData::shared()->settingsDidLoad());
        fixture.forget();

        Tolvane::initialize(u"other"_s);
        settle();
        QVERIFY(fixture.log->lines.isEmpty() && fixture.delegate->events.isEmpty() &&
                fixture.session->requests.isEmpty());
    }

    void initializeWithoutAStore()
    {
        FacadeFixture fixture;
        fixture.preferences->canOpen = false;
        Tolvane::initialize(u"key"_s);
        settle();
        QVERIFY(fixture.texts().constFirst().startsWith("New customer ID generated: "_L1));
        QVERIFY(!fixture.delegate->events.constFirst().customerId());
        QVERIFY(SdkData::shared()->settingsDidLoad());
    }

    void callsBeforeInitializeDoNothing()
    {
        const std::function<void()> calls[] = {
            [] { Tolvane::open(); },
            [] { Tolvane::openConversation(u"t"_s); },
            [] { Tolvane::openNewConversation(); },
            [] { Tolvane::refreshUnread(); },
            [] { Tolvane::close(); },
            [] { QVERIFY(Tolvane::updateCustomer({}, u"id"_s).isFinished()); },
            [] { Tolvane::setDeviceToken("x"); },
            [] { Tolvane::handlePushNotification(push(messageContent)); },
            [] { QCOMPARE(Tolvane::willPresentNotification(push()), PresentationOptions::none); }};
        for (const auto &call : calls) {
            FacadeFixture fixture;
            Tolvane::enableLogging(false);
            call();
            settle();
            // Logged even with logging off: the host's developer must see it.
            QCOMPARE(fixture.texts(), QStringList{notInitialized});
            QCOMPARE(fixture.log->types, QList{LogType::fault});
            QVERIFY(fixture.delegate->events.isEmpty() && fixture.session->requests.isEmpty() &&
                    fixture.broadcasts.isEmpty() && fixture.presentations.isEmpty());
            QVERIFY(fixture.preferences->values->isEmpty());
        }
    }

    void updateCustomer()
    {
        update(u"a@b.c"_s, u"7"_s, u"Customer updated: a@b.c 7 mine"_s,
               R"({"email":"a@b.c","originalId":"7"})");
        update(QString(), {}, u"Customer updated:  nil mine"_s, R"({"email":""})"); // Not absent.
        update({}, {}, u"Customer updated: nil nil mine"_s, "{}");
        update(u"%2%1"_s, u"%3"_s, u"Customer updated: %2%1 %3 mine"_s,
               R"({"email":"%2%1","originalId":"%3"})");
    }

    void eventsHaveTheIdsAtTheirCreation()
    {
        FacadeFixture fixture;
        fixture.initialize();
        const QVariantMap own = {{u"device_model"_s, 5}, {u"error_code"_s, 5}, {u"kept"_s, 5}};
        auto &analytics = TolvaneAnalyticsManager::shared();
        analytics.trackUserAction(u"tapped"_s, u"home"_s, own);
        Tolvane::updateCustomer({}, u"7"_s);
        settle();
        analytics.trackError(u"now"_s, own, UrlError(UrlError::timedOut));
        const auto &events = fixture.delegate->events;
        QCOMPARE(events.constFirst().customerId(), persistentstore::customerId());
        QVERIFY(!events.constFirst().originalCustomerId());
        QCOMPARE(events.constLast().originalCustomerId(), u"7"_s);
        // The library's own properties replace those of the caller.
        QVariantMap properties = events.constFirst().properties();
        properties.insert(events.constLast().properties());
        QCOMPARE(properties.value(u"device_model"_s), u"Test Model"_s);
        QCOMPARE(properties.value(u"error_code"_s), -1001);
        QCOMPARE(properties.value(u"kept"_s), 5);
    }

    void aFailedUpdateKeepsTheOriginalId()
    {
        FacadeFixture fixture;
        fixture.initialize();
        fixture.failing = true;
        const QFuture<void> done = Tolvane::updateCustomer({}, u"7"_s);
        settle();
        QVERIFY(done.isFinished() && !done.isCanceled());
        QCOMPARE(persistentstore::customerOriginalId(), u"7"_s);
        QVERIFY(fixture.texts().constFirst().startsWith("Error updating customer: "_L1));
        const QVariantMap error = fixture.delegate->properties(Event::Errors::networkError);
        QCOMPARE(error.value(u"error_context"_s), u"updateCustomer"_s);
        QCOMPARE(error.value(u"error_code"_s), -1009);
    }

    void deviceTokensAreRegistered()
    {
        FacadeFixture fixture;
        fixture.initialize();
        persistentstore::setCustomerOriginalId(u"7"_s);
        Tolvane::setDeviceToken(QByteArray::fromHex("0aff"));
        QCOMPARE(fixture.texts(), QStringList{u"Device token: 0aff"_s});
        QCOMPARE(fixture.delegate->names(), QStringList{Event::Lifecycle::deviceTokenSet});
        QVERIFY(fixture.session->requests.isEmpty());
        settle();
        QCOMPARE(fixture.session->requests.constFirst().body,
                 QByteArray(R"({"originalId":"7","deviceToken":"0aff"})"));
        // The scripted 304 counts as a failure here: reported to analytics, but not logged.
        QCOMPARE(fixture.delegate->properties(Event::Errors::apiError).value(u"error_context"_s),
                 u"setDeviceToken"_s);
        QCOMPARE(fixture.texts().size(), 1);
    }

    void pushesAreRecognised()
    {
        const QList<QVariantMap> payloads = {push(), // The only one of ours.
                                             push({}, u"Tolvane"_s),
                                             push({}, 5),
                                             push({}, QByteArray("tolvane")),
                                             push({}, QVariant()),
                                             {}};
        for (const QVariantMap &payload : payloads) {
            FacadeFixture fixture;
            const bool isOurs = payload == payloads.first();
            QCOMPARE(Tolvane::isTolvanePushNotification(payload), isOurs);
            fixture.initialize();
            QCOMPARE(Tolvane::willPresentNotification(payload),
                     isOurs ? PresentationOptions::soundAndBanner : PresentationOptions::none);
            Tolvane::handlePushNotification(payload);
            QCOMPARE(fixture.delegate->names().isEmpty(), !isOurs);
            QVERIFY(fixture.broadcasts.isEmpty());
        }
    }

    void pushesAreRouted()
    {
        const QString message = u"message"_s;
        const QString preview = u"ticketPreview"_s;
        const QVariantMap bare = {{u"id"_s, u"m"_s}}; // Without a ticket's id.
        route({{message, messageContent}, {preview, bare}}, notifications::didReceiveMessage,
              messageContent, true);
        route({{message, bare}}, notifications::didReceiveMessage, bare, false);
        route({{preview, bare}}, notifications::didReceiveStateUpdate, bare, false);
        route({{message, 5}, {preview, bare}}, notifications::didReceiveStateUpdate, bare, false);
        route({}, {}, {}, false);
    }

    void unreadConversationsAreCounted()
    {
        FacadeFixture fixture;
        fixture.initialize();
        QList<int> counts;
        const QObject context;
        QObject::connect(Tolvane::notifier(), &TolvaneNotifier::unreadCountChanged, &context,
                         [&](int count) { counts += count; });
        const auto deliver = [](const QString &ticketId, const QString &sender, bool isRead) {
            MessageDto message = makeMessage(u"m"_s);
            message.ticketId = ticketId;
            message.sender.type = sender;
            message.isRead = isRead;
            Tolvane::handlePushNotification(
                push({{u"message"_s, tolvane::json::dictionary(message)}}));
            return Tolvane::unreadCount();
        };
        QCOMPARE(deliver(u"a"_s, words::humanAgent, false), 1);
        QCOMPARE(deliver(u"b"_s, words::customer, false), 1); // The customer's own.
        QCOMPARE(deliver(u"b"_s, words::aiAgent, false), 2);
        QCOMPARE(deliver(u"b"_s, words::aiAgent, false), 2); // The same conversation.
        QCOMPARE(deliver(u"b"_s, words::aiAgent, true), 1);  // Read on another device.

        fixture.failing = true;
        Tolvane::refreshUnread();
        settle();
        QCOMPARE(Tolvane::unreadCount(), 1);
        TicketPreviewDto unread = makePreview(u"c"_s);
        unread.lastMessage.sender.type = words::humanAgent;
        TicketPreviewDto other = unread;
        other.id = u"d"_s;
        fixture.session->handler = [&](const UrlRequest &request) {
            return request.url.path().endsWith(u"/tickets"_s)
                       ? test::json(encodeList(QList{unread, other}))
                       : jsonResponse(makeTicket({}, u"c"_s));
        };
        fixture.forget();
        Tolvane::refreshUnread();
        Tolvane::refreshUnread(); // One request.
        settle();
        QCOMPARE(fixture.session->requests.size(), 1);
        QCOMPARE(Tolvane::unreadCount(), 2);
        const auto ticket = std::make_shared<TicketData>(unread);
        detach(ticket->fetchTicket());
        settle();
        QCOMPARE(counts, QList<int>({1, 2, 1, 2, 1}));
    }

    void anyPayloadIsHandled_data()
    {
        QTest::addColumn<QVariant>("value");
        QVariant deep = u"bottom"_s;
        QVariant deepMap = deep;
        for (int i = 0; i < 5'000; ++i) {
            deep = QVariantList{deep};
            deepMap = QVariantMap{{u"message"_s, deepMap}};
        }
        QTest::newRow("deep lists") << deep;
        QTest::newRow("deep dictionaries") << deepMap;
        QTest::newRow("huge text") << QVariant(QString(5'000'000, u'x'));
        QTest::newRow("lone surrogate") << QVariant(QString(QChar(0xd800)));
        QTest::newRow("number") << QVariant(1e308);
        QTest::newRow("NaN") << QVariant(qQNaN());
        QTest::newRow("null") << QVariant();
        QTest::newRow("typed null") << QVariant(QMetaType(QMetaType::QVariantMap));
        QTest::newRow("bytes") << QVariant(QByteArray("\0\xff", 2));
        QTest::newRow("date") << QVariant(QDateTime());
        QTest::newRow("hash") << QVariant(QVariantHash{{u"id"_s, 1}});
        QTest::newRow("object") << QVariant::fromValue<QObject *>(nullptr);
    }

    void anyPayloadIsHandled()
    {
        QFETCH(const QVariant, value);
        FacadeFixture fixture;
        fixture.initialize();
        const auto ticket = std::make_shared<TicketData>(makePreview());
        const auto polling = PollingService::shared(); // Both decode the broadcasts.
        const auto observation = ticket->observe();
        const bool isDictionary = value.typeId() == QMetaType::QVariantMap;
        QVariantMap partly = tolvane::json::dictionary(makeMessage(u"m"_s));
        partly.insert(u"attachments"_s, value);
        for (const QVariantMap &content :
             {QVariantMap{{u"message"_s, value}}, QVariantMap{{u"ticketPreview"_s, value}},
              QVariantMap{{u"message"_s, partly}}, QVariantMap{{u"extra"_s, value}}}) {
            fixture.broadcasts.clear();
            Tolvane::handlePushNotification(push(content));
            settle();
            const bool isRouted = !content.contains(u"extra"_s) &&
                                  (isDictionary || content.value(u"message"_s) == partly);
            QCOMPARE(fixture.broadcasts.size(), isRouted ? 1 : 0);
            if (isRouted)
                QVERIFY(fixture.broadcasts.constFirst().userInfo == content.constBegin()->toMap());
        }
        QVERIFY(!Tolvane::isTolvanePushNotification({{u"source"_s, value}}));
    }

    void callsFromOtherThreadsArriveInOrder()
    {
        FacadeFixture fixture;
        const std::unique_ptr<QThread> thread(QThread::create([] {
            Tolvane::initialize(u"key"_s);
            Tolvane::open();
            Tolvane::handlePushNotification(push());
            QCOMPARE(Tolvane::willPresentNotification(push()), PresentationOptions::none);
        }));
        thread->start();
        thread->wait();
        QVERIFY(fixture.delegate->events.isEmpty());
        settle();
        QCOMPARE(fixture.delegate->names().first(3),
                 QStringList({Event::Lifecycle::sdkInitialized, Event::Chat::opened,
                              Event::Notifications::pushTapped}));
        QCOMPARE(fixture.texts().filter(u"off the main thread"_s).size(), 1);
    }

    void delegatesMayMisbehave()
    {
        FacadeFixture fixture;
        const auto throwing = std::make_shared<ThrowingDelegate>();
        Tolvane::setAnalyticsDelegate(throwing);
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"host"_s));
        Tolvane::initialize(u"key"_s);

        auto owned = std::make_shared<SelfRemovingDelegate>();
        auto *raw = owned.get();
        std::shared_ptr<TolvaneAnalyticsDelegate> self = std::move(owned);
        raw->self = &self;
        Tolvane::setAnalyticsDelegate(self);
        Tolvane::open();
        Tolvane::open();
        QVERIFY(!self);

        Tolvane::setAnalyticsDelegate(fixture.delegate); // It gets no past events.
        QVERIFY(fixture.delegate->events.isEmpty());
        QCOMPARE(
            fixture.texts().filter(u"Analytics delegate set: "_s),
            QStringList({u"Analytics delegate set: enabled"_s, u"Analytics delegate set: enabled"_s,
                         u"Analytics delegate set: disabled"_s,
                         u"Analytics delegate set: enabled"_s}));
        std::weak_ptr<TolvaneAnalyticsDelegate> weak = fixture.delegate;
        fixture.delegate.reset();
        QVERIFY(weak.expired()); // The library holds it weakly.
        Tolvane::open();
    }

    void errorsAreClassified()
    {
        const std::tuple<QString, QString, QString> cases[] = {
            {u"x.NSURLErrorDomain"_s, u"bad configuration"_s, Event::Errors::networkError},
            {u"other"_s, u"The CONFIGURATION is off"_s, Event::Errors::configurationError},
            {u"other"_s, u"text"_s, Event::Errors::apiError}};
        for (const auto &[domain, description, event] : cases) {
            FacadeFixture fixture;
            auto &manager = TolvaneAnalyticsManager::shared();
            manager.trackError({}, {{u"k"_s, 1}}, Error(domain, 7, description));
            QCOMPARE(fixture.delegate->names(), QStringList{event});
            const QVariantMap properties = fixture.delegate->properties(event);
            QCOMPARE(properties.value(u"error_message"_s), description);
            QCOMPARE(properties.value(u"error_code"_s), 7);
            QCOMPARE(properties.value(u"k"_s), 1);
            QVERIFY(!properties.contains(u"error_context"_s));
            manager.setEnabled(false);
            fixture.forget();
            manager.trackUserAction(u"a"_s, u"s"_s, {});
            QVERIFY(fixture.delegate->events.isEmpty() && fixture.log->lines.isEmpty());
            manager.setEnabled(true);
        }
    }

    void environmentsHaveNames()
    {
        for (const char *name : {"production", "development", "alpha"}) {
            const auto environment = Tolvane::environmentFromRawValue(QString::fromLatin1(name));
            QVERIFY(environment);
            QCOMPARE(Tolvane::rawValue(*environment), QString::fromLatin1(name));
        }
        QVERIFY(!Tolvane::environmentFromRawValue(u"Production"_s));
        QCOMPARE(TolvaneSdkVersionNumber, 1.0);
        QCOMPARE(
            std::strcmp(TolvaneSdkVersionString, "@(#)PROGRAM:TolvaneSdk  PROJECT:Tolvane-1\n"), 0);
    }
};

QTEST_GUILESS_MAIN(TolvaneTest)
#include "tst_tolvane.moc"
