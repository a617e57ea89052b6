// SPDX-License-Identifier: MIT
#include "platform/system/userinterface.h"

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
};

QTEST_MAIN(ScreenTest)
#include "tst_screensize.moc"
