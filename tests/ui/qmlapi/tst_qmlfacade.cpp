// SPDX-License-Identifier: MIT
#include "analytics/manager.h"
#include "backend/configuration.h"
#include "backend/persistentstore.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "testing/samplerecords.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

extern void qml_register_types_Tolvane();
extern void qml_register_types_Tolvane_Private();

namespace {

const QByteArray host = R"(
    import QtQml
    import Tolvane

    QtObject {
        property var events: []
        property var states: []
        property Connections connections: Connections {
            target: Tolvane

            function onAnalyticsEvent(event) { events.push(event) }
            function onIsOpenChanged() { states.push(Tolvane.isOpen) }
        }

        function run(source) { return eval(source) }
    }
)";

/// A host in QML, with replaced services.
struct QmlHostFixture : Fixture
{
    QmlHostFixture()
    {
        session->handler = [](const UrlRequest &request) {
            return test::json("{}", request.url.path().endsWith(u"/settings"_s) ? 304 : 200);
        };
        QQmlComponent component(engine.get());
        component.setData(host, QUrl());
        object.reset(component.create());
        if (!object)
            qWarning().noquote() << component.errorString();
    }

    QVariant run(const QString &source)
    {
        QVariant result;
        QMetaObject::invokeMethod(object.get(), "run", Q_RETURN_ARG(QVariant, result),
                                  Q_ARG(QVariant, source));
        settle();
        return result;
    }

    /// Bodies of the requests since the last call, except those for settings.
    QList<QByteArray> bodies()
    {
        QList<QByteArray> bodies;
        for (const UrlRequest &request : std::exchange(session->requests, {})) {
            if (!request.url.path().endsWith(u"/settings"_s))
                bodies += request.body;
        }
        return bodies;
    }

    void postState(bool isOpen)
    {
        platform().notificationCenter->post(notifications::didChangeState,
                                            QVariantMap{{u"open"_s, isOpen}});
    }

    std::unique_ptr<QQmlEngine> engine = std::make_unique<QQmlEngine>();
    std::unique_ptr<QObject> object;
};

} // namespace

class QmlFacadeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qml_register_types_Tolvane();
        qml_register_types_Tolvane_Private();
    }

    void operationsAreThoseOfTheFacade()
    {
        const auto row = [](const char *source, const QString &event, const QByteArray &body) {
            QmlHostFixture fixture;
            fixture.run(u"Tolvane.initialize('key')"_s);
            QVERIFY(fixture.delegate->names().contains(u"tolvane_sdk_initialized"_s));
            fixture.bodies();
            fixture.delegate->events.clear();
            fixture.run(QString::fromLatin1(source));
            QVERIFY2(fixture.delegate->names().contains(event), source);
            QCOMPARE(fixture.bodies(), body.isEmpty() ? QList<QByteArray>() : QList{body});
        };
        const QString updated = u"tolvane_customer_updated"_s;
        row("Tolvane.open()", u"tolvane_chat_opened"_s, {});
        row("Tolvane.openConversation('t')", u"tolvane_chat_opened"_s, {});
        row("Tolvane.openNewConversation()", u"tolvane_chat_opened"_s, {});
        row("Tolvane.updateCustomer('a@b.c', '7')", updated,
            R"({"email":"a@b.c","originalId":"7"})");
        row("Tolvane.updateCustomer(undefined, 7)", updated, R"({"originalId":"7"})");
        row("Tolvane.updateCustomer('', null)", updated, R"({"email":""})");
        row("Tolvane.updateCustomer()", updated, "{}");
        row("Tolvane.setDeviceToken(new Uint8Array([10, 255]).buffer)",
            u"tolvane_device_token_set"_s, R"({"deviceToken":"0aff"})");
        row("Tolvane.willPresentNotification({source: 'tolvane'})", u"tolvane_push_received"_s, {});
        row("Tolvane.handlePushNotification({source: 'tolvane'})", u"tolvane_push_tapped"_s, {});
    }

    void valuesAreThoseOfTheFacade()
    {
        QmlHostFixture fixture;
        fixture.run(u"Tolvane.initialize('key')"_s);
        for (const QString &source :
             {u"Tolvane.isTolvanePushNotification({source: 'tolvane'})"_s,
              u"!Tolvane.isTolvanePushNotification({})"_s,
              u"Tolvane.willPresentNotification({source: 'tolvane'}) === Tolvane.SoundAndBanner"_s,
              u"Tolvane.willPresentNotification({}) === Tolvane.None"_s,
              u"Tolvane.SoundAndBanner === 18 && Tolvane.unreadCount === 0"_s,
              u"Tolvane.close() || !Tolvane.isOpen"_s,
              u"Tolvane.presentation = Tolvane.Panel; Tolvane.setPresentation(Tolvane.Full, "
              u"Tolvane);"
              u"Tolvane.presentation === Tolvane.Panel"_s,
              u"Tolvane.version === '%1'"_s.arg(Tolvane::version())})
            QVERIFY2(fixture.run(source).toBool(), qPrintable(source));
    }

    void unknownEnvironmentsAreIgnored()
    {
        QmlHostFixture fixture;
        fixture.run(u"Tolvane.setEnvironment(Tolvane.Alpha)"_s);
        QCOMPARE(Configuration::shared().environment(), Tolvane::Environment::alpha);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"There is no environment 7"_s));
        fixture.run(u"Tolvane.setEnvironment(7)"_s);
        QCOMPARE(Configuration::shared().environment(), Tolvane::Environment::alpha);
    }

    void isOpenFollowsTheMessenger()
    {
        QmlHostFixture fixture;
        QCOMPARE(fixture.run(u"Tolvane.isOpen"_s), QVariant(false));
        fixture.postState(true);
        fixture.postState(true);
        fixture.postState(false);
        // Other changes emit no signal.
        fixture.run(u"Tolvane.initialize('key')"_s);
        QCOMPARE(fixture.run(u"JSON.stringify(states)"_s), QVariant(u"[true,false]"_s));
    }

    void eventsReachBothLanguages()
    {
        QmlHostFixture fixture;
        persistentstore::setCustomerId(u"mine"_s);
        TolvaneAnalyticsManager::shared().track(u"both"_s, {{u"key"_s, 3}});
        QCOMPARE(fixture.delegate->names(), QStringList{u"both"_s});
        const QDateTime time = fixture.delegate->events.constFirst().timestamp();
        QCOMPARE(fixture.run(u"events.length"_s).toInt(), 1);
        QCOMPARE(
            fixture.run(u"const e = events[0]; [e.name, e.properties.key, e.customerId, "
                        "e.originalCustomerId, e.environment, e.timestamp.getTime()].join()"_s),
            QVariant(u"both,3,mine,,production,%1"_s.arg(time.toMSecsSinceEpoch())));

        // QML gets events without a delegate, and a delegate without QML.
        Tolvane::setAnalyticsDelegate(nullptr);
        TolvaneAnalyticsManager::shared().track(u"QML"_s, {});
        QCOMPARE(fixture.run(u"events[1].name"_s), QVariant(u"QML"_s));
        Tolvane::setAnalyticsDelegate(fixture.delegate);
        fixture.object.reset();
        fixture.engine.reset();
        TolvaneAnalyticsManager::shared().track(u"C++"_s, {});
        QCOMPARE(fixture.delegate->names(), QStringList({u"both"_s, u"C++"_s}));
    }

    void theModuleHasOnlyPublicTypes()
    {
        const std::pair<const char *, bool> types[] = {
            {"ParallaxScrollView { configuration: Parallax.configuration(Parallax.heights(2, 1), "
             "Parallax.heights(2, 1), 0, 1, 0.5, 'red', 'red') }",
             true},
            {"HelpButton { }", true},
            {"LoadingStateView { loadingState: 'idle' }", true},
            {"TolvaneEmptyContentView { }", true},
            {"TolvaneErrorContentView { errorText: 'None' }", true},
            {"IconButton { }", false},
            {"Icon { }", false},
            {"MessageBubble { }", false}};
        for (const auto &[type, isThere] : types) {
            QmlHostFixture fixture;
            QQmlComponent component(fixture.engine.get());
            component.setData(QByteArray("import Tolvane\n") + type, QUrl());
            QVERIFY2(component.errorString().contains(u"is not a type"_s) != isThere, type);
            const std::unique_ptr<QObject> object(isThere ? component.create() : nullptr);
            QVERIFY2((object != nullptr) == isThere, qPrintable(component.errorString()));
        }
    }
};

QTEST_MAIN(QmlFacadeTest)
#include "tst_qmlfacade.moc"
