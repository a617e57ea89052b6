// SPDX-License-Identifier: MIT
// The parts of the anchored list: offsets of rows, the scroll animation, the animations of a row.
#include "testing/manualframes.h"
#include "ui/listview/listrow.h"
#include "ui/listview/rowoffsets.h"
#include "ui/listview/scrollanimation.h"

#include <QtCore/QPointer>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <numeric>

using namespace tolvane;
using test::ManualFrames;

namespace {

/// The offset of a row, summed up from the first row each time.
double summedOffset(const std::vector<double> &heights, int row)
{
    return std::accumulate(heights.begin(), heights.begin() + row, 0.0);
}

/// A row whose item is 40 pixels high.
struct RowFixture
{
    RowFixture()
    {
        auto item = std::make_unique<QQuickItem>();
        item->setImplicitHeight(40);
        pointer = item.get();
        row.emplace(ItemPointer(item.release()), [this] { ++steps; });
    }

    QPointer<QQuickItem> pointer;
    int steps = 0;
    std::optional<ListRow> row;
};

} // namespace

class ListViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offsetsFollowEveryChange()
    {
        RowOffsets offsets;
        std::vector<double> heights;
        QCOMPARE(offsets.rowAt(0), -1);
        QRandomGenerator random(7);
        for (int change = 0; change < 2000; ++change) {
            const int count = int(heights.size());
            const int row = random.bounded(count + 1);
            switch (random.bounded(count > 60 ? 4 : 3)) {
            case 0:
            case 1: {
                const int inserted = random.bounded(1, 4);
                offsets.insert(row, inserted);
                heights.insert(heights.begin() + row, std::size_t(inserted),
                               RowOffsets::estimatedHeight);
                break;
            }
            case 2:
                if (row < count) {
                    // Some rows have no height, like an attachment strip that is closed.
                    heights[std::size_t(row)] = random.bounded(8) * 10;
                    offsets.setHeight(row, heights[std::size_t(row)]);
                }
                break;
            default: {
                const int removed = random.bounded(count - row + 1);
                offsets.remove(row, removed);
                heights.erase(heights.begin() + row, heights.begin() + row + removed);
            }
            }
            QCOMPARE(offsets.count(), int(heights.size()));
            // A query in the middle must not leave stale offsets behind it.
            const int asked = random.bounded(offsets.count() + 1);
            QCOMPARE(offsets.offset(asked), summedOffset(heights, asked));
        }
        QCOMPARE(offsets.offset(offsets.count()), summedOffset(heights, offsets.count()));
        offsets.clear();
        QCOMPARE(offsets.offset(0), 0.0);
        QCOMPARE(offsets.rowAt(50), -1);
    }

    void theRowAtAnOffset()
    {
        RowOffsets offsets;
        offsets.insert(0, 4);
        offsets.setHeight(1, 20);
        offsets.setHeight(2, 0); // Skipped.
        const std::pair<double, int> cases[] = {{-1000, 0}, {0, 0},   {99.9, 0}, {100, 1},
                                                {120, 3},   {219, 3}, {220, 3},  {1e9, 3}};
        for (const auto &[offset, row] : cases)
            QCOMPARE(offsets.rowAt(offset), row);
    }

    void aScrollAnimationEndsAtItsTarget()
    {
        ManualFrames frames;
        int steps = 0;
        ScrollAnimation animation([&] { ++steps; });
        QVERIFY(!animation.isActive());
        animation.setTarget(ScrollAnimation::Kind::end, 200);
        QVERIFY(animation.isActive() && !animation.hasBegun() && !animation.isFinished());
        animation.begin(600);
        QCOMPARE(animation.distance(), 600.0);
        frames.pass(10);
        frames.pass(90);
        QVERIFY(animation.distance() > 200 && animation.distance() < 400);
        double before = animation.distance();
        for (int frame = 0; frame < 20; ++frame) {
            frames.pass(10);
            QVERIFY(animation.distance() <= before);
            before = animation.distance();
        }
        QVERIFY(animation.isFinished());
        QCOMPARE(animation.distance(), 0.0);
        QVERIFY(steps > 10);

        // Another target before the end starts anew; stopping leaves no distance to scroll.
        animation.setTarget(ScrollAnimation::Kind::position, 200, 1234);
        QVERIFY(animation.isActive() && !animation.isFinished());
        QCOMPARE(animation.position(), 1234.0);
        animation.begin(-50);
        frames.pass(10);
        animation.stop();
        steps = 0;
        frames.pass(100);
        QVERIFY(!animation.isActive());
        QCOMPARE(steps, 0);
    }

    void rowsMoveAndFade()
    {
        // The shift and the opacity at the beginning and at the end.
        move("enter", 40, 0, 0, 1);
        move("displace", -75, 1, 0, 1);
        move("leave", 0, 1, -40, 0);
        move("leaveDown", 0, 1, 40, 0);
    }

private:
    static void move(const QByteArray &motion, double startShift, double startOpacity,
                     double endShift, double endOpacity)
    {
        ManualFrames frames;
        RowFixture fixture;
        ListRow &row = *fixture.row;
        fixture.pointer->setProperty("leavesDownwards", motion == "leaveDown");
        if (motion == "enter")
            row.enter();
        else if (motion == "displace")
            row.displace(-75);
        else
            row.leave();
        QCOMPARE(row.shift(), startShift);
        QCOMPARE(fixture.pointer->opacity(), startOpacity);
        QCOMPARE(fixture.pointer->isEnabled(), !motion.startsWith("leave"));
        frames.pass(10);
        frames.pass(150);
        QVERIFY(row.isMoving());
        row.place(300);
        QCOMPARE(fixture.pointer->y(), 300 + row.shift());
        frames.pass(200);
        QVERIFY(!row.isMoving());
        QCOMPARE(row.shift(), endShift);
        QCOMPARE(fixture.pointer->opacity(), endOpacity);
        QVERIFY(fixture.steps >= 3);
    }

private Q_SLOTS:
    void aReleasedItemIsNotAnimated()
    {
        ManualFrames frames;
        RowFixture fixture;
        fixture.row->enter();
        frames.pass(10);
        const ItemPointer item = fixture.row->takeItem();
        const double opacity = item->opacity();
        frames.pass(150);
        fixture.row.reset();
        frames.pass(150);
        QCOMPARE(item->opacity(), opacity);
    }

    void anItemOutlivesTheSignalThatRemovesIt()
    {
        RowFixture fixture;
        fixture.row.reset();
        QVERIFY(fixture.pointer && !fixture.pointer->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!fixture.pointer);
    }
};

QTEST_MAIN(ListViewTest)
#include "tst_listview.moc"
