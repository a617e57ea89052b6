// SPDX-License-Identifier: MIT
#include "ui/parallax/parallaxrules.h"

#include <QtTest/QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace tolvane;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

ParallaxConfiguration configured(ParallaxHeightConfiguration portrait = {240, 80},
                                 double threshold = 0.3)
{
    return {portrait, {160, 60}, 0.5, 1.2, threshold, Qt::blue, Qt::white};
}

/// The state after each offset: o or c, in upper case if a change was reported.
QString statesAfter(ParallaxRules &rules, const QList<double> &offsets)
{
    QString states;
    for (const double offset : offsets) {
        int reports = 0;
        rules.onStateChange = [&](ParallaxScrollState state) {
            const bool isStored = rules.scrollOffset() == (std::isnan(offset) ? 0 : offset);
            reports += isStored && state == rules.state() ? 1 : 100;
        };
        rules.setScrollOffset(offset);
        const bool isCollapsed = rules.state() == ParallaxScrollState::collapsed;
        states += reports > 1 ? u'?' : u"ocOC"_s.at(2 * reports + (isCollapsed ? 1 : 0));
    }
    return states;
}

} // namespace

class ParallaxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void configurationsAreKeptWithinTheirLimits()
    {
        // The argument, then its effect as a height, as a fraction, and as the stretch factor.
        const QList<double> cases[] = {{0.5, 0.5, 0.5, 1},
                                       {-3, 0, 0, 1},
                                       {7.5, 7.5, 1, 7.5},
                                       {notANumber, 0, 0, 1},
                                       {infinity, infinity, 1, infinity}};
        for (const QList<double> &each : cases) {
            const ParallaxConfiguration all({each[0], 1}, {1, each[0]}, each[0], each[0], each[0],
                                            Qt::red, Qt::green);
            QCOMPARE(all.portrait().openedHeight(), each[1]);
            QCOMPARE(all.landscape().collapsedHeight(), each[1]);
            QCOMPARE(all.parallaxFactor(), each[2]);
            QCOMPARE(all.thresholdPercentage(), each[2]);
            QCOMPARE(all.stretchFactor(), each[3]);
        }
    }

    void statesFollowTheOffsets()
    {
        const auto row = [](const char *tag, const QList<double> &offsets, const QString &states,
                            double opened = 240, double threshold = 0.3) {
            ParallaxRules rules(configured({opened, 80}, threshold));
            QVERIFY2(statesAfter(rules, offsets) == states, tag);
        };
        row("not past the threshold", {0, -20, -42}, u"ooo"_s);
        row("past it, and back", {-42.1, -140, -21.1, -20}, u"Cccc"_s);
        row("at half of it, still collapsed", {-50, -21, -13}, u"CcO"_s);
        row("below half of it", {-50, -20.9}, u"CO"_s);
        row("a step of 0.05 is ignored", {-40, -47, -47.1}, u"ooC"_s);
        row("also if rounding makes it larger", {-70, -77, -78}, u"ooC"_s, 240, 0.5);
        row("small steps add up", {-38, -41, -43, -45.1}, u"oooC"_s);
        row("beyond the range", {-5000, -1e300, 0}, u"CcO"_s);
        row("infinitely far", {-infinity, infinity}, u"CO"_s);
        row("pulled down", {30, 400, -60, 30}, u"ooCO"_s);
        row("NaN is rest", {-60, notANumber}, u"CO"_s);
        row("threshold 0", {-7, -7.1, -1, 0}, u"oCcc"_s, 240, 0);
        row("threshold 1", {-140, -500}, u"oo"_s, 240, 1);
        row("no range", {0, 5, -0.1, 5, 0}, u"ooCOo"_s, 100);
        row("a negative range", {0, -1, -40, 0}, u"oCcO"_s, 50);
        row("an infinite range", {-1e9, -infinity}, u"oo"_s, infinity);
    }
};

QTEST_APPLESS_MAIN(ParallaxTest)
#include "tst_parallax.moc"
