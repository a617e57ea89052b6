// SPDX-License-Identifier: MIT
#include "platform/userinterface.h"

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
};

QTEST_MAIN(ScreenTest)
#include "tst_screen.moc"
