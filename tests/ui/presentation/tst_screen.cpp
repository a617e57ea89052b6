// SPDX-License-Identifier: MIT
#include "platform/system/userinterface.h"

#include <tolvane/parallax.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtTest/QTest>

/// Linked as a host links the library of views, and nothing of it is called: loading it must do.
class ScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadingTheViewsLendsTheScreen()
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
#include "tst_screen.moc"
