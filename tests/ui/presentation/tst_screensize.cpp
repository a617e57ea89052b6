// SPDX-License-Identifier: MIT
#include "platform/system/userinterface.h"

#include <tolvane/parallax.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtTest/QTest>

/// Links the library of views like a host, but calls nothing of it: loading it must suffice.
class ScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadingTheViewsProvidesTheScreenSize()
    {
        const auto screenSize = tolvane::userInterface().screenSize;
        QVERIFY(screenSize);
        QCOMPARE(screenSize(), QSizeF(QGuiApplication::primaryScreen()->size()));
        QVERIFY(!screenSize().isEmpty());
    }

    void hostsConfigureWhatTheViewsShow()
    {
        const tolvane::ParallaxHeightConfiguration heights(240, -1);
        const tolvane::ParallaxConfiguration all(heights, heights, 0, 1, 2, Qt::blue, Qt::white);
        QCOMPARE(all.portrait().collapsedHeight(), 0.0);
        QCOMPARE(all.thresholdPercentage(), 1.0);
    }
};

QTEST_MAIN(ScreenTest)
#include "tst_screensize.moc"
