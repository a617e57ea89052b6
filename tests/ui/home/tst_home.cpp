// SPDX-License-Identifier: MIT
// The home screen, used by mouse, wheel and keyboard.
#include "testing/ui/messengerfixture.h"

#include <QtGui/QAccessible>
#include <QtGui/QWheelEvent>

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
    }

    bool open()
    {
        if (!showHost())
            return false;
        loadSettings();
        TolvaneViewController::presentInForeground();
        settle();
        return QTest::qWaitFor([this] { return find(u"text of last"_s); }) && waitForAnimations();
    }

    bool hasSlidIn() const
    {
        const auto items = messenger()->childItems();
        return std::ranges::none_of(items, [](const QQuickItem *item) { return item->y() > 0; });
    }

    bool waitForAnimations()
    {
        // Long enough for a busy machine.
        const bool isThere = QTest::qWaitFor([this] { return hasSlidIn(); }, 20'000);
        QTest::qWait(450);
        return isThere;
    }

    void drag(QPoint from, QPoint to)
    {
        QTest::mousePress(&host, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 10; ++step)
            QTest::mouseMove(&host, from + (to - from) * step / 10, 16);
        QTest::qWait(300); // Held, so that the release is no flick.
        QTest::mouseRelease(&host, Qt::LeftButton, {}, to);
    }

    void turnWheel(int notches)
    {
        for (int notch = 0; notch < qAbs(notches); ++notch) {
            const QPointF place(200, 500);
            QWheelEvent event(place, host.mapToGlobal(place), {}, {0, notches > 0 ? 120 : -120},
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&host, &event);
        }
        QTest::qWait(20);
    }

    /// All visible accessible objects, in the order of screen readers.
    static void collect(QAccessibleInterface *in, QList<QAccessibleInterface *> &all)
    {
        if (!in || in->state().invisible)
            return;
        all += in;
        for (int index = 0; index < in->childCount(); ++index)
            collect(in->child(index), all);
    }
    QList<QAccessibleInterface *> accessibleObjects()
    {
        QList<QAccessibleInterface *> all;
        collect(QAccessible::queryAccessibleInterface(&host), all);
        return all;
    }
    QStringList accessibleRows()
    {
        QStringList rows;
        for (QAccessibleInterface *each : accessibleObjects()) {
            if (each->role() == QAccessible::ListItem)
                rows += each->text(QAccessible::Name);
        }
        return rows;
    }
    QRect placeOf(const QString &name)
    {
        for (QAccessibleInterface *each : accessibleObjects()) {
            if (each->text(QAccessible::Name).startsWith(name))
                return each->rect().translated(-host.position());
        }
        return {};
    }
};

} // namespace

class HomeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPullReloads_data()
    {
        QTest::addColumn<int>("pulled");
        QTest::addColumn<int>("turned");
        QTest::addColumn<bool>("loads");
        QTest::newRow("a long pull") << 260 << 0 << true;
        QTest::newRow("a short pull") << 60 << 0 << false;
        QTest::newRow("wheel turned up at the top") << 0 << 3 << true;
        QTest::newRow("one notch") << 0 << 1 << false;
        QTest::newRow("wheel turned down") << 0 << -4 << false;
    }

    void aPullReloads()
    {
        QFETCH(const int, pulled);
        QFETCH(const int, turned);
        QFETCH(const bool, loads);
        HomeFixture fixture(3);
        QVERIFY(fixture.open());
        const qsizetype before = fixture.listRequests();
        if (pulled > 0)
            fixture.drag({200, 300}, {200, 300 + pulled});
        fixture.turnWheel(turned);
        settle();
        QCOMPARE(fixture.listRequests() > before, loads);
        fixture.waitForAnimations();
    }

    void momentumAtTheTopDoesNotReload()
    {
        HomeFixture fixture(40);
        QVERIFY(fixture.open());
        const qsizetype before = fixture.listRequests();
        fixture.turnWheel(-8);
        fixture.waitForAnimations();
        fixture.turnWheel(25);
        fixture.waitForAnimations();
        QCOMPARE(fixture.listRequests(), before);
    }

    void theKeyboardWorks()
    {
        HomeFixture fixture(3);
        QVERIFY(fixture.open());
        QTest::keyClick(&fixture.host, Qt::Key_Down);
        QTest::keyClick(&fixture.host, Qt::Key_Down);
        QTest::keyClick(&fixture.host, Qt::Key_Return);
        QCOMPARE(fixture.delegate->properties(u"user_action"_s).value(u"ticket_id"_s), u"t1"_s);
        fixture.waitForAnimations();
        QTest::keyClick(&fixture.host, Qt::Key_Escape);
        fixture.waitForAnimations();

        // The tab order: the list, the button for a new ticket, the close button.
        QStringList reached;
        for (int press = 0; press < 3; ++press) {
            QTest::keyClick(&fixture.host, Qt::Key_Tab);
            if (QAccessibleInterface *focused =
                    QAccessible::queryAccessibleInterface(fixture.host.activeFocusItem()))
                reached += focused->text(QAccessible::Name);
        }
        QVERIFY2(reached.contains(u"Send us a message"_s) &&
                     reached.contains(u"accessibility_close"_s),
                 qPrintable(reached.join(u'|')));
    }

    void controlsAndRowsHaveNames()
    {
        HomeFixture fixture(2);
        QVERIFY(fixture.open());
        for (QAccessibleInterface *each : fixture.accessibleObjects()) {
            const QString name = each->text(QAccessible::Name);
            if (each->state().focusable || each->role() == QAccessible::Button)
                QVERIFY2(!name.isEmpty(), each->object()->metaObject()->className());
        }
        QCOMPARE(fixture.accessibleRows().size(), 2);
        QVERIFY(fixture.accessibleRows().constFirst().contains(u"text of last"_s));

        // The removed row is not accessible, although its item may be reused.
        fixture.setTickets({u"t1"_s});
        fixture.clock->advance(std::chrono::seconds(5));
        platform().notificationCenter->post(notifications::didReceiveMessage, QVariantMap());
        settle();
        fixture.waitForAnimations();
        QCOMPARE(fixture.accessibleRows().size(), 1);
    }

    void itIsMirrored()
    {
        HomeFixture fixture(1);
        fixture.bundle->direction = Qt::RightToLeft;
        QVERIFY(fixture.open());
        QVERIFY(fixture.placeOf(u"accessibility_close"_s).left() < 30);
        QQuickItem *text = fixture.find(u"text of last"_s);
        QCOMPARE(text->mapRectToScene(text->boundingRect()).right(), 400 - 16 - 8 - 32 - 10.0);
    }
};

QTEST_MAIN(HomeTest)
#include "tst_home.moc"
