// SPDX-License-Identifier: MIT
#include "testing/manualframes.h"
#include "ui/motion/springvalue.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <limits>

using namespace tolvane;

namespace {

/// Runs the animation to its end, for at most 10 seconds. Returns the greatest value.
double passAll(test::ManualFrames &frames, const SpringValue &value)
{
    double greatest = value.value();
    for (int frame = 0; value.isRunning() && frame < 1000; ++frame) {
        frames.pass(10);
        greatest = std::max(greatest, value.value());
    }
    return greatest;
}

} // namespace

class SpringTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void aValueReachesItsTargetAndStops()
    {
        test::ManualFrames frames;
        SpringValue value;
        QSignalSpy states(&value, &SpringValue::isRunningChanged);
        value.setTarget(0);
        QVERIFY(!value.isRunning()); // It is there already.
        value.setTarget(100);
        QCOMPARE(value.value(), 0.0);
        const double greatest = passAll(frames, value);
        QVERIFY2(greatest > 102 && greatest < 104, qPrintable(QString::number(greatest)));
        QCOMPARE(value.value(), 100.0);
        QCOMPARE(states.count(), 2);
    }

    void anotherTargetKeepsTheVelocity()
    {
        test::ManualFrames frames;
        SpringValue value;
        value.setTarget(100);
        frames.pass(10);
        frames.pass(80);
        const double before = value.value();
        QVERIFY(before > 20 && before < 90);
        value.setTarget(-50);
        value.setTarget(-50);
        QCOMPARE(value.value(), before); // No jump,
        frames.pass(2);
        frames.pass(2);
        QVERIFY(value.value() > before); // and it turns around no faster than a spring would.
        passAll(frames, value);
        QCOMPARE(value.value(), -50.0);
    }

    void nonFiniteValuesAreIgnored()
    {
        SpringValue value;
        value.jumpTo(5);
        for (const double number :
             {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
            value.jumpTo(number);
            value.setTarget(number);
            QCOMPARE(value.target(), 5.0);
            QVERIFY(!value.isRunning());
        }
        value.setDampingFraction(-1);
        QCOMPARE(value.dampingFraction(), 0.05);
    }
};

QTEST_GUILESS_MAIN(SpringTest)
#include "tst_spring.moc"
