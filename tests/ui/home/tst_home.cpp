// SPDX-License-Identifier: MIT
// The home screen, used by mouse, wheel and keyboard.
#include "state/times/timeago.h"
#include "testing/ui/accessibletree.h"
#include "testing/ui/screens.h"
#include "testing/ui/uirobot.h"
#include "ui/kit/theme.h"

using namespace tolvane;
using namespace tolvane::test;

namespace {

/// The open messenger with this many tickets, after its animations.
struct HomeFixture : MessengerFixture
{
    explicit HomeFixture(int count)
    {
        QStringList ids;
        for (int index = 0; index < count; ++index)
            ids += u"t%1"_s.arg(index);
        setTickets(ids);
        session->handler = [next = session->handler](const UrlRequest &request) {
            BrandingDto branding = sampleBranding();
            branding.logoLight = u"https://cdn.example/light"_s;
            branding.logoDark = u"https://cdn.example/dark"_s;
            return request.url.path().endsWith(u"/settings"_s) ? jsonResponse(branding)
                                                               : next(request);
        };
    }

    bool open()
    {
        if (!showHost())
            return false;
        loadSettings();
        TolvaneViewController::present();
        robot.find(QAccessible::ListItem, u"text of last"_s);
        robot.waitForAnimations();
        return true;
    }

    qsizetype accessibleRows()
    {
        return std::ranges::count(accessibleTree(host), QAccessible::ListItem,
                                  &AccessibleNode::role);
    }

    UiRobot robot{host};
};

} // namespace

class HomeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { tolvane::test::Appearance().apply(); }

    void theSystemsAppearanceCountsUnlessTheHostHasColours()
    {
        using enum SystemAppearance;
        for (const auto &[color, isFromHost, system, isDark] :
             {std::tuple(Qt::white, false, unknown, false),
              {Qt::black, false, unknown, true},
              {Qt::white, false, dark, true},
              {Qt::black, false, light, false},
              {Qt::white, true, dark, false},
              {Qt::black, true, light, true}}) {
            QPalette palette(color, color);
            if (!isFromHost)
                palette.setResolveMask(0);
            QCOMPARE(isDarkAppearance(palette, system), isDark);
        }
    }

    void aPullReloads()
    {
        pull(3, 260, {}, true);
        pull(3, 60, {}, false);
        pull(3, 0, {3}, true);        // The wheel, turned up at the top,
        pull(3, 0, {1}, false);       // by one notch,
        pull(3, 0, {-4}, false);      // and down.
        pull(40, 0, {-8, 25}, false); // Its momentum ends at the top.
    }

private:
    static void pull(int count, int pulled, const QList<int> &turns, bool loads)
    {
        HomeFixture fixture(count);
        QVERIFY(fixture.open());
        const qsizetype before = fixture.listRequests();
        if (pulled > 0) {
            fixture.robot.drag({200, 300}, {0, pulled});
            QTest::qWait(300); // Held, so that the release is no flick.
            fixture.robot.release();
        }
        for (const int turn : turns) {
            fixture.robot.turnWheel(turn);
            fixture.robot.waitForAnimations();
        }
        settle();
        QCOMPARE(fixture.listRequests() > before, loads);
        fixture.robot.waitForAnimations();
    }

private Q_SLOTS:
    void keysOpenATicketAndReload()
    {
        HomeFixture fixture(3);
        QVERIFY(fixture.open());
        // Tab goes around the screen, and then shows the ring on the first row.
        for (const Qt::Key key :
             {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Return}) {
            fixture.robot.press(key);
            QCoreApplication::processEvents();
        }
        QCOMPARE(fixture.delegate->properties(u"user_action"_s).value(u"ticket_id"_s), u"t1"_s);
        fixture.robot.waitForAnimations();
        fixture.clock->advance(std::chrono::minutes(5));
        const QPointer<QQuickItem> editor = fixture.lastVisible("AutoSizingTextEditor_");
        fixture.robot.press(Qt::Key_Escape);
        QCoreApplication::processEvents();
        QVERIFY(!editor || editor->opacity() == 1); // Slides out.
        fixture.robot.waitForAnimations();
        fixture.robot.find(QAccessible::ListItem, u"5 %lld timeago_minutes"_s);
        for (const bool isFailing : {true, false}) {
            fixture.isFailing = isFailing;
            fixture.robot.press(Qt::Key_F5);
            settle();
            QTRY_COMPARE(fixture.find(u"ticket_list_stale"_s) != nullptr, isFailing);
            QVERIFY(fixture.find(u"text of last"_s));
        }
    }

    void theHeaderHasALogo()
    {
        const std::tuple<QSize, bool, bool, double> cases[] = {{{400, 700}, false, false, 54},
                                                               {{400, 700}, true, true, 32},
                                                               {{700, 400}, false, true, 38},
                                                               {{700, 400}, true, false, 22}};
        for (const auto &[size, isCollapsed, isDark, width] : cases) {
            HomeFixture fixture(40);
            tolvane::test::Appearance{.isDark = isDark}.apply();
            fixture.host.resize(size);
            QVERIFY(fixture.open());
            if (isCollapsed)
                fixture.robot.turnWheel(-8);
            fixture.robot.waitForAnimations();
            QTRY_COMPARE(fixture.lastVisible("BrandLogo_")->width(), width);
            const QQuickItem *logo = HomeFixture::lastVisible(fixture.lastVisible("BrandLogo_"),
                                                              "tolvane::CachedAsyncImage");
            QCOMPARE(logo->property("url").toUrl().path(), isDark ? u"/dark"_s : u"/light"_s);
        }
    }

    void theButtonShrinksWhilePressedAndLeavesWhileTheListLoads()
    {
        HomeFixture fixture(1);
        QVERIFY(fixture.open());
        const auto button = [&] { return fixture.robot.find(QAccessible::Button, u"Send us"_s); };
        const QRect rect = button();
        fixture.robot.drag(rect.center(), {});
        QTRY_VERIFY(button().left() > rect.left());
        fixture.session->held = true;
        fixture.robot.press(Qt::Key_F5);
        QTRY_VERIFY(!fixture.robot.canSee(QAccessible::Button, u"Send us"_s));
    }

    void theMouseDragsTheScrollBar()
    {
        HomeFixture fixture(40);
        QVERIFY(fixture.open());
        fixture.robot.drag({398, 90}, {0, 300});
        fixture.robot.release();
        const auto isAtTop = [&fixture] {
            fixture.robot.waitForAnimations();
            return fixture.robot.find(QAccessible::Heading).top() > 100;
        };
        QVERIFY(!isAtTop());
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Home, Qt::Key_PageDown}) {
            fixture.robot.press(key);
            QCOMPARE(isAtTop(), key == Qt::Key_Home);
        }
    }

    void theMouseRests()
    {
        HomeFixture fixture(1);
        QVERIFY(fixture.open());
        const QQuickItem *row = fixture.lastVisible("TicketItem_");
        const QQuickItem *age = fixture.find(row->property("caption").toString());
        const QQuickItem *close = fixture.lastVisible("IconButton_");
        for (const auto &[item, text, isInRow] :
             {std::tuple(age, dateTimeText(row->property("timestamp").toString()), true),
              {close, close->property("name").toString() + u" (Esc)"_s, false}}) {
            fixture.robot.moveTo(item->mapToScene({10, item->height() / 2}).toPoint());
            const auto hasToolTip = [&] {
                const QQuickItem *tip = fixture.find(text);
                return tip && tip->property("isShown").toBool();
            };
            QTRY_VERIFY2(hasToolTip(), qPrintable(text));
            QCOMPARE(row->property("isHovered").toBool(), isInRow);
        }
    }

    void aRemovedRowIsNotAccessible()
    {
        HomeFixture fixture(2);
        QVERIFY(fixture.open());
        QCOMPARE(fixture.accessibleRows(), 2);
        fixture.setTickets({u"t1"_s});
        fixture.clock->advance(std::chrono::seconds(5));
        platform().notificationCenter->post(notifications::didReceiveMessage, QVariantMap());
        settle();
        fixture.robot.waitForAnimations();
        QCOMPARE(fixture.accessibleRows(), 1); // Its item may be reused.
    }

    void itIsMirrored()
    {
        HomeFixture fixture(1);
        fixture.bundle->direction = Qt::RightToLeft;
        QVERIFY(fixture.open());
        QVERIFY(fixture.robot.find(QAccessible::Button, u"accessibility_close"_s).left() < 30);
        QQuickItem *text = fixture.find(u"text of last"_s);
        QCOMPARE(text->mapRectToScene(text->boundingRect()).right(), 400 - 16 - 8 - 32 - 10.0);
    }
};

QTEST_MAIN(HomeTest)
#include "tst_home.moc"
