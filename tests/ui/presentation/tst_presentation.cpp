// SPDX-License-Identifier: MIT
#include "platform/platform.h"
#include "state/notifications.h"
#include "state/sdkdata.h"
#include "testing/ui/messengerfixture.h"
#include "ui/attachments/hostpicture.h"
#include "ui/presentation/idlememory.h"
#include "ui/presentation/safemargins.h"
#include "ui/presentation/viewcontroller.h"
#include "ui/presentation/viewsengine.h"

#include <tolvane/tolvane.h>

#include <QtCore/QPointer>
#include <QtGui/QRasterWindow>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickView>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

void open()
{
    TolvaneViewController::present();
}

} // namespace

class PresentationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itWaitsForTheSettingsAndShowsTheList()
    {
        MessengerFixture fixture;
        fixture.setTickets({u"t1"_s, u"t2"_s});
        QVERIFY(fixture.showHost());
        open();
        QCOMPARE(fixture.openStates(), QList<bool>{true});
        QVERIFY(SdkData::shared()->isOpen());
        settle();
        QCOMPARE(fixture.listRequests(), 0);
        QVERIFY(fixture.messenger() && !fixture.find(u"main_subtitle"_s));

        fixture.loadSettings();
        QCOMPARE(fixture.listRequests(), 1); // The first appearance adds no refresh of its own.
        QVERIFY(fixture.find(u"main_subtitle"_s));
        QTRY_VERIFY(fixture.find(u"text of last"_s));
        QTRY_COMPARE(fixture.host.grabWindow().pixelColor(5, 5), QColor(0x20, 0x5d, 0x4e));

        fixture.clock->advance(std::chrono::seconds(5));
        platform().notificationCenter->post(notifications::didReceiveMessage, QVariantMap());
        settle();
        QCOMPARE(fixture.listRequests(), 2);
    }

    void contentAvoidsWhatTheSystemCovers()
    {
        MessengerFixture fixture;
        QVERIFY(fixture.showHost());
        open();
        fixture.messenger()->findChild<SafeMargins *>()->setMargins({10, 40, 0, 20});
        const QQuickItem *screen = fixture.lastVisible("TolvaneScreen");
        const QSizeF size = fixture.messenger()->size() - QSizeF(10, 60);
        QCOMPARE(QRectF(screen->position(), screen->size()), QRectF({10, 40}, size));
    }

    void missingSettingsAreFetchedAgain()
    {
        MessengerFixture fixture;
        int failures = 3;
        fixture.session->handler = [&, next = fixture.session->handler](const UrlRequest &request) {
            if (request.url.path().endsWith(u"/settings"_s) && failures-- > 0)
                throw UrlError(UrlError::notConnectedToInternet);
            return next(request);
        };
        QVERIFY(fixture.showHost());
        fixture.loadSettings();
        open();
        settle();
        QCOMPARE(failures, 1);
        QTRY_VERIFY(fixture.find(u"error_offline"_s) && fixture.find(u"error_retry"_s));
        fixture.clock->advance(std::chrono::seconds(2));
        QCOMPARE(failures, 0);
        QVERIFY(fixture.find(u"error_offline"_s));
        fixture.clock->advance(std::chrono::seconds(4));
        QTRY_VERIFY(fixture.find(u"main_subtitle"_s));
    }

    void aTappedPushLoadsTheListOnce()
    {
        MessengerFixture fixture;
        QVERIFY(fixture.showHost());
        fixture.loadSettings();
        const QVariantMap push{{u"source"_s, u"tolvane"_s},
                               {u"message"_s, QVariantMap{{u"id"_s, u"m"_s}}}};
        Tolvane::handlePushNotification(push);
        settle();
        QCOMPARE(fixture.listRequests(), 1);
        // Tapped while the messenger slides out.
        Tolvane::close();
        Tolvane::handlePushNotification(push);
        QTest::qWait(400);
        QVERIFY(fixture.messenger() && Tolvane::isOpen());
        QCOMPARE(fixture.openStates(), QList<bool>({true, false, true}));
    }

    void closingRestoresTheHost()
    {
        closeBy([](QQuickView &host) { QTest::keyClick(&host, Qt::Key_Escape); }, 1);
        closeBy([](QQuickView &host) { QTest::keyClick(&host, Qt::Key_Back); }, 1);
        closeBy(
            [](QQuickView &host) {
                QTest::mouseClick(&host, Qt::LeftButton, {}, QPoint(host.width() - 34, 34));
            },
            1);
        closeBy([](QQuickView &) { Tolvane::close(); }, 0);
    }

private:
    static void closeBy(const std::function<void(QQuickView &)> &close, int taps)
    {
        MessengerFixture fixture;
        QVERIFY(fixture.showHost());
        fixture.loadSettings();
        for (int round = 0; round < 2; ++round) {
            fixture.broadcasts.clear();
            fixture.delegate->events.clear();
            Tolvane::close(); // It is closed already.
            open();
            open(); // It is open already.
            settle();
            QVERIFY(Tolvane::isOpen());
            QTRY_VERIFY(fixture.isInPlace());
            close(fixture.host);
            close(fixture.host); // It is closing already,
            QTest::mouseClick(&fixture.host, Qt::LeftButton, {}, QPoint(195, 760)); // and inert.
            QTRY_VERIFY(!fixture.messenger());
            QVERIFY(!Tolvane::isOpen());
            QCOMPARE(fixture.openStates(), QList<bool>({true, false}));
            QVERIFY(fixture.field->hasActiveFocus());
            QCOMPARE(fixture.delegate->names().count(u"user_action"_s), taps);
            const QVariantMap properties = fixture.delegate->properties(u"user_action"_s);
            if (taps > 0) {
                QCOMPARE(properties.value(u"action_type"_s), u"close_button_tapped"_s);
                QCOMPARE(properties.value(u"close_method"_s), u"button"_s);
            }
            const QPointer<QQmlEngine> engine(&viewsEngine());
            fixture.clock->advance(idlememory::keptFor);
            QVERIFY(!engine);
        }
    }

private Q_SLOTS:
    void itTakesTheFocusedWindow()
    {
        MessengerFixture fixture;
        QQuickView other;
        other.resize(300, 300);
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));
        QVERIFY(fixture.showHost());
        open();
        QVERIFY(fixture.messenger());
        QVERIFY(other.contentItem()->childItems().isEmpty());
    }

    void itOpensAConversationDirectly()
    {
        openDirectly([] { Tolvane::openConversation(u"t9"_s); }, u"ticket_support"_s, {});
        openDirectly([] { Tolvane::openNewConversation(u"My order"_s); },
                     u"ticket_new_discussion"_s, u"My order"_s);
        const QVariantMap message = json::dictionary(makeMessage(u"m"_s));
        openDirectly(
            [message] {
                Tolvane::handlePushNotification(
                    {{u"source"_s, u"tolvane"_s}, {u"message"_s, message}});
            },
            u"ticket_support"_s, {});
    }

private:
    static void openDirectly(const std::function<void()> &openIt, const QString &title,
                             const QString &draft)
    {
        MessengerFixture fixture;
        openIt(); // There is no window, so it is forgotten.
        QVERIFY(fixture.showHost());
        open();
        fixture.loadSettings();
        QVERIFY(!fixture.find(title));
        for (const bool isOpen : {true, false}) {
            if (!isOpen) {
                Tolvane::close();
                QTRY_VERIFY(!fixture.messenger());
            }
            openIt();
            openIt(); // Keeps the page.
            QTRY_VERIFY(fixture.find(title));
            if (!draft.isEmpty())
                QTRY_VERIFY(fixture.find(draft + u'\n' + draft));
            QVERIFY(std::ranges::none_of(fixture.session->requests, [](const UrlRequest &request) {
                return request.method == "POST";
            })); // Nothing is sent.
            QTRY_VERIFY(fixture.isInPlace());
            QTRY_COMPARE(fixture.lastVisible("NavigationPage_")->mapToScene({}).x(), 0.0);
            if (!isOpen)
                QTest::mouseClick(&fixture.host, Qt::BackButton, {}, QPoint(200, 300));
            else if (draft.isEmpty())
                QTest::keyClick(&fixture.host, Qt::Key_Left, Qt::AltModifier);
            else
                QTest::keyClick(&fixture.host, Qt::Key_Escape);
            QTRY_VERIFY(!fixture.find(title) && fixture.find(u"main_subtitle"_s));
        }
    }

private Q_SLOTS:
    void aPanelLeavesTheHostUsable()
    {
        showPanel({1000, 900}, Qt::LeftToRight, {584, 164, 400, 720});
        showPanel({700, 500}, Qt::LeftToRight, {284, 16, 400, 468}); // The smallest window.
        showPanel({1000, 900}, Qt::RightToLeft, {16, 164, 400, 720});
        showPanel({1000, 900}, Qt::RightToLeft, {584, 164, 400, 720}, Tolvane::PanelSide::leading);
        showPanel({699, 900}, Qt::LeftToRight, {0, 0, 699, 900}); // Too narrow.
        showPanel({900, 499}, Qt::LeftToRight, {0, 0, 900, 499}); // Too low.
    }

private:
    static void showPanel(const QSize &window, Qt::LayoutDirection direction, const QRect &area,
                          Tolvane::PanelSide side = Tolvane::PanelSide::trailing)
    {
        MessengerFixture fixture;
        fixture.bundle->direction = direction;
        if (side == Tolvane::PanelSide::leading)
            Tolvane::setPresentation(Tolvane::Presentation::panel);
        else
            Tolvane::setPresentation(Tolvane::Presentation::panel, &fixture.host);
        Tolvane::setPanelSide(side);
        fixture.host.resize(window);
        QVERIFY(fixture.showHost());
        fixture.loadSettings();
        open();
        QTRY_VERIFY(fixture.isInPlace());
        const QQuickItem *messenger = fixture.messenger();
        const auto areaOf = [&] {
            return messenger->mapRectToScene(messenger->boundingRect()).toRect();
        };
        QCOMPARE(areaOf(), area);
        QVERIFY(messenger->hasActiveFocus() && !fixture.field->hasActiveFocus());
        const bool isPanel = area.size() != window;
        for (const auto &[key, modifiers] :
             {std::pair(Qt::Key_F6, Qt::NoModifier), std::pair(Qt::Key_Tab, Qt::ControlModifier)}) {
            QTest::keyClick(&fixture.host, key, modifiers);
            QCOMPARE(fixture.field->hasActiveFocus(), isPanel);
            QTest::keyClick(&fixture.host, key, modifiers);
            QVERIFY(messenger->hasActiveFocus());
        }
        const QColor outside = fixture.host.grabWindow().pixelColor(window.width() / 2, 5);
        QCOMPARE(outside == QColor(Qt::blue), isPanel);
        // The picture of the window is without the messenger.
        const QImage picture = hostpicture::grab(*fixture.messenger());
        QCOMPARE(picture.pixelColor(area.center()), QColor(Qt::blue));
        QVERIFY(messenger->hasActiveFocus() && messenger->opacity() == 1);

        // The window becomes too small and large again, under an open conversation.
        Tolvane::openNewConversation(u"My order"_s);
        QTRY_VERIFY(fixture.find(u"My order"_s));
        const QQuickItem *draft = fixture.find(u"My order"_s);
        fixture.host.resize(400, 700);
        QTRY_COMPARE(areaOf(), QRect(0, 0, 400, 700));
        fixture.host.resize(window);
        QTRY_COMPARE(areaOf(), area);
        QCOMPARE(fixture.find(u"My order"_s), draft);
    }

private Q_SLOTS:
    void itClosesWithTheHostsWindow()
    {
        for (const bool isDestroyed : {false, true}) {
            for (const bool isQuick : {true, false})
                endTheWindow(isDestroyed, isQuick);
        }
    }

private:
    static void endTheWindow(bool isDestroyed, bool isQuick)
    {
        MessengerFixture fixture;
        for (int round = 0; round < 2; ++round) {
            std::unique_ptr<QWindow> window;
            if (isQuick)
                window = std::make_unique<QQuickView>();
            else
                window = std::make_unique<QRasterWindow>();
            window->resize(300, 300);
            window->show();
            QVERIFY(QTest::qWaitForWindowExposed(window.get()));
            open();
            QVERIFY(Tolvane::isOpen());
            if (isDestroyed)
                window.reset();
            else
                window->close();
            settle();
            QVERIFY(!Tolvane::isOpen() && !SdkData::shared()->isOpen());
        }
        QCOMPARE(fixture.openStates(), QList<bool>({true, false, true, false}));
    }

private Q_SLOTS:
    void otherHostsGetAModalWindow()
    {
        for (const bool isClosedByTheSystem : {false, true})
            openOverARasterWindow(isClosedByTheSystem);
    }

private:
    static void openOverARasterWindow(bool isClosedByTheSystem)
    {
        MessengerFixture fixture;
        QRasterWindow window;
        window.resize(360, 500);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        open();
        QQuickWindow *own = nullptr;
        for (QWindow *each : QGuiApplication::topLevelWindows()) {
            if (each->transientParent() == &window)
                own = qobject_cast<QQuickWindow *>(each);
        }
        QVERIFY(own && own->modality() == Qt::WindowModal);
        QCOMPARE(own->geometry(), window.geometry());
        window.resize(300, 400);
        QTRY_COMPARE(own->size(), QSize(300, 400));
        QVERIFY(QTest::qWaitForWindowActive(own));
        const QPointer<QQuickWindow> watched = own;
        if (isClosedByTheSystem)
            own->close();
        else
            QTest::keyClick(own, Qt::Key_Escape);
        QTRY_VERIFY(!watched);
        QCOMPARE(fixture.openStates(), QList<bool>({true, false}));
    }
};

QTEST_MAIN(PresentationTest)
#include "tst_presentation.moc"
