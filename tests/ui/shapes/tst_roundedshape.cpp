// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedshape.h"

#include <QtTest/QTest>

#include <cmath>
#include <numbers>

using namespace tolvane;

class RoundedShapeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theMiddleMatchesTheArc_data()
    {
        QTest::addColumn<double>("radius");
        QTest::addColumn<double>("room");
        QTest::addColumn<double>("used");
        QTest::addColumn<double>("extent");
        QTest::newRow("room enough") << 20.0 << 100.0 << 20.0 << 30.0;
        QTest::newRow("infinite room") << 20.0 << qInf() << 20.0 << 30.0;
        QTest::newRow("less room") << 20.0 << 24.0 << 20.0 << 24.0;
        QTest::newRow("a circle") << 20.0 << 20.0 << 20.0 << 20.0;
        QTest::newRow("more than a circle") << 50.0 << 20.0 << 20.0 << 20.0;
        QTest::newRow("no radius") << 0.0 << 10.0 << 0.0 << 0.0;
        QTest::newRow("no room") << 10.0 << 0.0 << 0.0 << 0.0;
        QTest::newRow("not a number") << qQNaN() << 10.0 << 0.0 << 0.0;
    }

    void theMiddleMatchesTheArc()
    {
        QFETCH(const double, radius);
        QFETCH(const double, room);
        QFETCH(const double, used);
        QFETCH(const double, extent);
        const ContinuousCorner corner = ContinuousCorner::forRadius(radius, room);
        QCOMPARE(corner.extent, extent);
        QCOMPARE(qFuzzyCompare(corner.exponent, 2), extent == used);

        // Measured from the sides: the middle is the arc's, and the curve meets the sides without a
        // kink.
        const QPointF middle = extent * (QPointF(1, 1) - corner.at(std::numbers::pi / 4));
        QVERIFY(std::abs(middle.x() - used * (1 - std::numbers::sqrt2 / 2)) < 1e-9);
        QVERIFY(std::abs(middle.x() - middle.y()) < 1e-9);
        QVERIFY(std::abs(corner.outwards(0).y()) < 1e-9);
        QVERIFY(std::abs(corner.at(std::numbers::pi).x() + 1) < 1e-9);
    }

    void anOutlineRoundsTheGivenCorners()
    {
        const QRectF bounds(10, 10, 100, 80);
        const RoundedShape shape = shapeFor(
            bounds.size(), bounds, FillMode::stretch,
            {.radius = 20, .corners = 1 | 8, .isCircle = false}); // Upper left, lower right.
        const QPainterPath path = shape.outline(2);
        QCOMPARE(path.boundingRect(), QRectF(0, 0, 200, 160));
        QVERIFY(!path.contains(QPointF(8, 8)) && !path.contains(QPointF(192, 152)));
        QVERIFY(path.contains(QPointF(192, 8)) && path.contains(QPointF(8, 152)));
        QVERIFY(path.contains(QPointF(14, 14)) && path.contains(QPointF(186, 146)));
    }
};

QTEST_GUILESS_MAIN(RoundedShapeTest)
#include "tst_roundedshape.moc"
