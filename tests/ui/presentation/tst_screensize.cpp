// SPDX-License-Identifier: MIT
#include "platform/system/userinterface.h"

#include <tolvane/tolvane.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtTest/QTest>

/// Links the library of views like a host, but calls nothing of it: its header must suffice, also
/// where linkers drop libraries that nothing refers to.
class ScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linkingTheViewsProvidesTheScreenSize()
    {
        const auto screenSize = tolvane::userInterface().screenSize;
        QVERIFY(screenSize);
        QCOMPARE(screenSize(), QSizeF(QGuiApplication::primaryScreen()->size()));
        QVERIFY(!screenSize().isEmpty());
    }
};

QTEST_MAIN(ScreenTest)
#include "tst_screensize.moc"
