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

/// The state after each offset: o or c, in capitals where a change was reported.
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
    void configurationsAreKeptWithinTheirLimits_data()
    {
        QTest::addColumn<double>("given");
        QTest::addColumn<double>("height");
        QTest::addColumn<double>("part");
        QTest::addColumn<double>("stretch");

        QTest::newRow("within") << 0.5 << 0.5 << 0.5 << 1.0;
        QTest::newRow("zero") << 0.0 << 0.0 << 0.0 << 1.0;
        QTest::newRow("negative") << -3.0 << 0.0 << 0.0 << 1.0;
        QTest::newRow("large") << 7.5 << 7.5 << 1.0 << 7.5;
        QTest::newRow("not a number") << notANumber << 0.0 << 0.0 << 1.0;
        QTest::newRow("infinite") << infinity << infinity << 1.0 << infinity;
    }

    void configurationsAreKeptWithinTheirLimits()
    {
        QFETCH(double, given);
        QFETCH(double, height);
        QFETCH(double, part);
        QFETCH(double, stretch);

        const ParallaxHeightConfiguration opened(given, 1);
        const ParallaxHeightConfiguration collapsed(1, given);
        QCOMPARE(opened.openedHeight(), height);
        QCOMPARE(collapsed.collapsedHeight(), height);
        const ParallaxConfiguration all(opened, collapsed, given, given, given, Qt::red, Qt::green);
        QCOMPARE(all.portrait(), opened);
        QCOMPARE(all.landscape(), collapsed);
        QCOMPARE(all.parallaxFactor(), part);
        QCOMPARE(all.stretchFactor(), stretch);
        QCOMPARE(all.thresholdPercentage(), part);
        QCOMPARE(all.headerBackground(), QColor(Qt::red));
        QCOMPARE(all.contentBackground(), QColor(Qt::green));
    }

    void statesFollowTheOffsets_data()
    {
        QTest::addColumn<double>("opened");
        QTest::addColumn<double>("threshold");
        QTest::addColumn<QList<double>>("offsets");
        QTest::addColumn<QString>("states");

        const auto row = [](const char *tag, const QList<double> &offsets, const QString &states,
                            double opened = 240, double threshold = 0.3) {
            QTest::newRow(tag) << opened << threshold << offsets << states;
        };
        row("not past the threshold", {0, -20, -42}, u"ooo"_s);
        row("past it, and back", {-42.1, -140, -21.1, -20}, u"Cccc"_s);
        row("half of it stays collapsed", {-50, -21, -13}, u"CcO"_s);
        row("below half of it", {-50, -20.9}, u"CO"_s);
        row("a step of 0.05 is none", {-40, -47, -47.1}, u"ooC"_s);
        row("also where it is rounded up", {-70, -77, -78}, u"ooC"_s, 240, 0.5);
        row("small steps add up", {-38, -41, -43, -45.1}, u"oooC"_s);
        row("beyond the range", {-5000, -1e300, 0}, u"CcO"_s);
        row("infinitely far", {-infinity, infinity}, u"CO"_s);
        row("pulled down", {30, 400, -60, 30}, u"ooCO"_s);
        row("not a number is at rest", {-60, notANumber}, u"CO"_s);
        row("threshold 0", {-7, -7.1, -1, 0}, u"oCcc"_s, 240, 0);
        row("threshold 1", {-140, -500}, u"oo"_s, 240, 1);
        row("no range", {0, 5, -0.1, 5, 0}, u"ooCOo"_s, 100);
        row("a negative range", {0, -1, -40, 0}, u"oCcO"_s, 50);
        row("an infinite range", {-1e9, -infinity}, u"oo"_s, infinity);
    }

    void statesFollowTheOffsets()
    {
        QFETCH(double, opened);
        QFETCH(double, threshold);
        QFETCH(QList<double>, offsets);
        QFETCH(QString, states);

        ParallaxRules rules(configured({opened, 80}, threshold));
        QCOMPARE(statesAfter(rules, offsets), states);
    }

    void heights_data()
    {
        QTest::addColumn<double>("viewHeight");
        QTest::addColumn<bool>("isLandscape");
        QTest::addColumn<double>("offset");
        QTest::addColumn<QList<double>>("heights"); // Header, sheet, top of the content.

        const auto row = [](const char *tag, double viewHeight, bool isLandscape, double offset,
                            const QList<double> &heights) {
            QTest::newRow(tag) << viewHeight << isLandscape << offset << heights;
        };
        row("at rest", 700, false, 0, {240, 620, 220});
        row("pulled down", 700, false, 30, {270, 620, 250});
        row("pulled far down", 700, false, 5000, {5240, 620, 5220});
        row("on the way", 700, false, -50, {190, 620, 170});
        row("the header is at its least", 700, false, -80, {160, 620, 140});
        row("the content has arrived", 700, false, -140, {160, 620, 80});
        row("further down", 700, false, -900, {160, 620, 80});
        row("not a number", 700, false, notANumber, {240, 620, 220});
        row("landscape", 300, true, 0, {160, 240, 140});
        row("landscape, moved up", 300, true, -80, {100, 240, 60});
        row("lower than the header", 50, false, 0, {240, 0, 220});
        row("no height", notANumber, false, 0, {240, 0, 220});
    }

    void heights()
    {
        QFETCH(double, viewHeight);
        QFETCH(bool, isLandscape);
        QFETCH(double, offset);
        QFETCH(QList<double>, heights);

        ParallaxRules rules(configured());
        QCOMPARE(rules.viewHeight(), 300.0);
        rules.setViewHeight(viewHeight);
        rules.setLandscape(isLandscape);
        rules.setScrollOffset(offset);
        QCOMPARE((QList{rules.headerHeight(), rules.sheetHeight(), rules.contentTop()}), heights);
    }

    void rotationChangesOnlyHeights()
    {
        ParallaxRules rules(configured());
        QCOMPARE(statesAfter(rules, {-40}), u"o"_s);
        rules.setLandscape(true); // Half of the range now.
        QCOMPARE(rules.state(), ParallaxScrollState::opened);
        QCOMPARE(rules.headerHeight(), 120.0);
        QCOMPARE(rules.scrollRange(), 80.0);
        // Steps are still counted from 40 of 140 pixels.
        QCOMPARE(statesAfter(rules, {-26, -27}), u"oC"_s);
        rules.setLandscape(false);
        rules.setConfiguration(configured({440, 80}));
        QCOMPARE(rules.state(), ParallaxScrollState::collapsed);
        QCOMPARE(rules.headerHeight(), 413.0);
    }

    void withoutARangeThereIsNoSpacer()
    {
        ParallaxRules rules(configured({90, 80}));
        QCOMPARE(rules.scrollRange(), -10.0);
        QCOMPARE(rules.spacerHeight(), 0.0);
        rules.setScrollOffset(-15);
        QCOMPARE(rules.contentTop(), 80.0);
        QCOMPARE(rules.headerHeight(), 75.0);
    }
};

QTEST_APPLESS_MAIN(ParallaxTest)
#include "tst_parallax.moc"
