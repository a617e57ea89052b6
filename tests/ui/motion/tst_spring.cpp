// SPDX-License-Identifier: MIT
#include "testing/manualframes.h"
#include "ui/motion/spring.h"
#include "ui/motion/springvalue.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <cmath>
#include <limits>

using namespace tolvane;

namespace {

/// Integrates the equation of motion in small steps.
Spring::Motion stepped(const Spring &spring, double seconds, Spring::Motion motion)
{
    constexpr int steps = 200'000;
    const double step = seconds / steps;
    const auto force = [&](double displacement, double velocity) {
        return -spring.stiffness() * displacement - spring.damping() * velocity;
    };
    for (int i = 0; i < steps; ++i) {
        const double before = force(motion.displacement, motion.velocity);
        const double middle = motion.velocity + step / 2 * before;
        motion.displacement += step * middle;
        motion.velocity = middle + step / 2 * force(motion.displacement, middle);
    }
    return motion;
}

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
    void motionsFollowTheEquation_data()
    {
        QTest::addColumn<double>("response");
        QTest::addColumn<double>("fraction");
        QTest::addColumn<double>("displacement");
        QTest::addColumn<double>("velocity");
        QTest::newRow("underdamped") << 0.35 << 0.75 << 1.0 << 0.0;
        QTest::newRow("underdamped, pushed") << 0.35 << 0.75 << -120.0 << 900.0;
        QTest::newRow("weakly damped") << 0.5 << 0.05 << 1.0 << 0.0;
        QTest::newRow("nearly critical") << 0.35 << 0.9999999 << 1.0 << 3.0;
        QTest::newRow("critical") << 0.35 << 1.0 << 1.0 << -20.0;
        QTest::newRow("overdamped") << 0.35 << 2.5 << 1.0 << 0.0;
        QTest::newRow("overdamped, pushed") << 0.7 << 1.2 << 0.0 << 50.0;
    }

    void motionsFollowTheEquation()
    {
        QFETCH(const double, response);
        QFETCH(const double, fraction);
        QFETCH(const double, displacement);
        QFETCH(const double, velocity);
        const Spring spring{.response = response, .dampingFraction = fraction};
        const Spring::Motion start{.displacement = displacement, .velocity = velocity};
        const double scale = spring.amplitude(start);
        for (const double seconds : {0.0, 0.016, 0.1, 0.35, 1.0}) {
            const Spring::Motion exact = spring.after(seconds, start);
            const Spring::Motion expected = stepped(spring, seconds, start);
            const Spring::Motion error{.displacement = exact.displacement - expected.displacement,
                                       .velocity = exact.velocity - expected.velocity};
            QVERIFY2(spring.amplitude(error) < 1e-3 * scale, qPrintable(QString::number(seconds)));
        }
        const Spring::Motion late = spring.after(1e6, start);
        QVERIFY(std::abs(late.displacement) < 1e-9 && std::abs(late.velocity) < 1e-9);
    }

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

    void jumpsAreImmediate()
    {
        test::ManualFrames frames;
        SpringValue value;
        value.jumpTo(7);
        QCOMPARE(value.value(), 7.0);
        value.setTarget(100);
        frames.pass(50);
        value.jumpTo(100);
        QCOMPARE(value.value(), 100.0);
        QVERIFY(!value.isRunning());

        value.setResponse(0);
        value.setTarget(3);
        frames.pass(1);
        QCOMPARE(value.value(), 3.0);
        QVERIFY(!value.isRunning());
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
