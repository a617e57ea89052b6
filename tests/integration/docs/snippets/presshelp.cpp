// SPDX-License-Identifier: MIT
// Goes into the hosts of the document as they are: presses what is in the window's corner, where
// they have their button, and ends them well if the messenger comes, else badly.
#include <QtCore/QTimer>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>
#include <QtTest/QTest>

namespace {

bool isMessengerThere()
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        const auto *scene = qobject_cast<QQuickWindow *>(window);
        if (!scene || !scene->isVisible())
            continue;
        for (const QQuickItem *item : scene->contentItem()->childItems()) {
            if (item->property("screen").isValid())
                return true;
        }
    }
    return false;
}

void pressHelp()
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    if (windows.isEmpty() || !QTest::qWaitForWindowExposed(windows.first()))
        return QCoreApplication::exit(EXIT_FAILURE);
    QTest::mouseClick(windows.first(), Qt::LeftButton, {}, QPoint(20, 20));
    const bool isThere = QTest::qWaitFor(isMessengerThere, 20'000);
    QCoreApplication::exit(isThere ? EXIT_SUCCESS : EXIT_FAILURE);
}

void arrange()
{
    QTimer::singleShot(0, pressHelp);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(arrange)
