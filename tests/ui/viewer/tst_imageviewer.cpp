// SPDX-License-Identifier: MIT
#include "state/messagedata.h"
#include "testing/fixture.h"
#include "testing/ui/createitem.h"
#include "testing/ui/samples.h"
#include "ui/images/imagecache.h"
#include "ui/sharing/imageshare.h"
#include "ui/viewer/zoomcontroller.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QPointingDevice>
#include <QtGui/QStyleHints>
#include <QtQuick/QQuickView>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

extern void qml_register_types_Tolvane_Private();

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

const QUrl address(u"https://cdn.example/photo.png"_s);
constexpr QSize room(400, 300);
constexpr QPoint middle(200, 150);

// As wide as the window, and half as high.
const UrlResponse picture = pictureResponse({80, 30});

/// A window with the viewer in it.
struct ImageViewerFixture : Fixture
{
    explicit ImageViewerFixture(bool isCached = true, bool isRightToLeft = false)
    {
        messages.attachments = {address.toString(), u"http://:no"_s, u"https://cdn.example/2"_s,
                                u"https://cdn.example/3"_s};
        session->handler = [](const UrlRequest &) { return picture; };
        if (isCached)
            ImageCache::shared().responses().store(picture, requestFor(address));
        messages.setSelectedAttachment(address);
        viewer = createItem(
                     *window.engine(),
                     "import QtQuick\nimport Tolvane.Private\nImageViewer { "
                     "LayoutMirroring.childrenInherit: "
                     "true; LayoutMirroring.enabled: " +
                         QVariant(isRightToLeft).toByteArray() + "}",
                     {{u"imageUrl"_s, address}, {u"messageData"_s, QVariant::fromValue(&messages)}})
                     .release();
        state = viewer->property("imageState").value<ZoomController *>();
        share = viewer->findChild<ImageShare *>();
        window.setResizeMode(QQuickView::SizeRootObjectToView);
        window.setContent({}, nullptr, viewer);
        window.resize(room);
        viewer->setFocus(true);
        window.show();
        window.requestActivate();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("no window");
        settle();
    }

    bool hasControls() const { return viewer->property("showControls").toBool(); }
    void press(QKeySequence keys) { QTest::keySequence(&window, keys); }
    void wheel(int degrees, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWheelEvent event(middle, window.mapToGlobal(middle), {}, {0, degrees * 8}, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window, &event);
    }
    void drag(QPoint by)
    {
        QTest::mousePress(&window, Qt::LeftButton, {}, middle);
        for (int step = 1; step <= 10; ++step)
            QTest::mouseMove(&window, middle + by * step / 10);
        QTest::mouseRelease(&window, Qt::LeftButton, {}, middle + by);
    }
    QColor colorAt(QPoint point) { return window.grabWindow().pixelColor(point); }

    MessageData messages;
    QQuickView window;
    QQuickItem *viewer;
    ZoomController *state;
    ImageShare *share;
    std::unique_ptr<QPointingDevice> screen{
        QTest::createTouchDevice(QInputDevice::DeviceType::TouchScreen)};
};

} // namespace

class ImageViewerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qml_register_types_Tolvane_Private(); }

    void zoomAndPanMoveThePicture()
    {
        ImageViewerFixture fixture;
        QCOMPARE(fixture.colorAt({200, 80}), QColor(Qt::red));
        QCOMPARE(fixture.colorAt({200, 60}), QColor(Qt::black));
        fixture.state->doubleTapped();
        QTRY_COMPARE(fixture.state->shownScale(), 2.0);
        QCOMPARE(fixture.colorAt({200, 2}), QColor(Qt::red));
        fixture.state->dragChanged({0, 150});
        QCOMPARE(fixture.colorAt({200, 145}), QColor(Qt::black));
        QCOMPARE(fixture.colorAt({200, 155}), QColor(Qt::red));
        fixture.window.resize(200, 150);
        QTRY_COMPARE(fixture.state->shownOffset(), QPointF(0, 75));
    }

    void fingersPinchAndDragAtOnce_data()
    {
        QTest::addColumn<int>("remaining");
        QTest::newRow("first") << 0;
        QTest::newRow("second") << 1;
    }

    void fingersPinchAndDragAtOnce()
    {
        QFETCH(const int, remaining);
        ImageViewerFixture fixture;
        auto fingers = QTest::touchEvent(&fixture.window, fixture.screen.get(), false);
        // A frame delivers only the last position.
        const auto move = [&](QPoint left, QPoint right) {
            fingers.move(0, left).move(1, right).commit();
            QTest::qWait(20);
        };
        fingers.press(0, QPoint(150, 150)).commit();
        fingers.stationary(0).press(1, QPoint(250, 150)).commit();
        for (int step = 1; step <= 10; ++step)
            move({150 - 10 * step, 150}, {250 + 10 * step, 150});
        const double scale = fixture.state->scale();
        QVERIFY2(scale > 1.5 && scale <= 3, qPrintable(QString::number(scale)));
        QCOMPARE(fixture.state->shownScale(), scale);
        for (int step = 1; step <= 10; ++step)
            move({50 + 4 * step, 150}, {350 + 4 * step, 150});
        QCOMPARE(fixture.state->scale(), scale);
        QCOMPARE(fixture.state->offset().x(), 40.0);

        const QPoint position(remaining == 0 ? 90 : 390, 150);
        fingers.stationary(remaining).release(1 - remaining, QPoint(480, 300) - position).commit();
        QTRY_VERIFY(!fixture.state->isDragging());
        QCOMPARE(fixture.state->offset().x(), 40.0);
        // The remaining finger continues the drag.
        for (int step = 1; step <= 10; ++step) {
            fingers.move(remaining, position - QPoint(5 * step, 0)).commit();
            QTest::qWait(20);
        }
        QVERIFY(fixture.state->isDragging());
        const double left = fixture.state->offset().x();
        QVERIFY2(left >= -10 && left < 30, qPrintable(QString::number(left)));
        fingers.release(remaining, position - QPoint(50, 0)).commit();
        QTRY_VERIFY(!fixture.state->isDragging());
        QVERIFY(fixture.hasControls());
    }

    void thePointerDragsAZoomedPicture()
    {
        ImageViewerFixture fixture;
        fixture.drag({60, 20});
        QCOMPARE(fixture.state->offset(), QPointF());
        fixture.state->doubleTapped();
        fixture.drag({60, 20});
        QCOMPARE(fixture.state->offset(), QPointF(60, 20));
        fixture.drag({-20, 0});
        QCOMPARE(fixture.state->offset(), QPointF(40, 20));
        fixture.drag({8, 0}); // Below the threshold of a drag.
        QCOMPARE(fixture.state->offset(), QPointF(40, 20));
    }

    void tapsToggleControlsAndZoom()
    {
        ImageViewerFixture fixture;
        const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, middle);
        QVERIFY(fixture.hasControls()); // A second click may follow.
        QTRY_VERIFY(!fixture.hasControls());
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, {30, 25}); // The button is hidden.
        QTRY_VERIFY(fixture.hasControls());
        QCOMPARE(fixture.state->scale(), 1.0);

        QSignalSpy controls(fixture.viewer, SIGNAL(showControlsChanged()));
        QTest::qWait(interval);
        for (const double scale : {2.0, 1.0}) {
            QTest::mouseDClick(&fixture.window, Qt::LeftButton, {}, middle);
            QCOMPARE(fixture.state->scale(), scale);
            QTest::qWait(interval * 2);
        }
        QCOMPARE(controls.count(), 0);
    }

    void theWheelPansAndZooms()
    {
        ImageViewerFixture fixture;
        fixture.wheel(15);
        QCOMPARE(fixture.state->offset(), QPointF());
        fixture.wheel(15, Qt::ControlModifier);
        fixture.wheel(15, Qt::ControlModifier);
        QCOMPARE(fixture.state->scale(), 1.5625);
        fixture.wheel(-15);
        QCOMPARE(fixture.state->offset(), QPointF(0, -60));
        QTest::qWait(300); // The pinch ends. In the next one, small turns add up.
        for (int turn = 0; turn < 20; ++turn)
            fixture.wheel(1, Qt::ControlModifier);
        QCOMPARE_GT(fixture.state->scale(), 2.0);
        for (int turn = 0; turn < 10; ++turn)
            fixture.wheel(-15, Qt::ControlModifier);
        QCOMPARE(fixture.state->scale(), 0.5);
        QTRY_COMPARE(fixture.state->scale(), 1.0); // As after any pinch.
        QCOMPARE(fixture.state->offset(), QPointF());
    }

    void keysAndSwipesChangeThePicture_data()
    {
        QTest::addColumn<bool>("isRightToLeft");
        QTest::addColumn<QKeySequence>("keys");
        QTest::addColumn<int>("swipe");
        QTest::addColumn<QString>("shown");
        const QString first = address.path();
        QTest::newRow("next") << false << QKeySequence(Qt::Key_Right) << 0 << u"/2"_s;
        QTest::newRow("start") << false << QKeySequence(Qt::Key_Left) << 0 << first;
        QTest::newRow("mirrored") << true << QKeySequence(Qt::Key_Left) << 0 << u"/2"_s;
        QTest::newRow("zoomed") << false << QKeySequence(Qt::Key_Plus, Qt::Key_Right) << 0 << first;
        QTest::newRow("end") << false << QKeySequence(Qt::Key_End, Qt::Key_Right) << 0 << u"/3"_s;
        QTest::newRow("button") << false
                                << QKeySequence(Qt::Key_Home, Qt::Key_Backtab, Qt::Key_Return) << 0
                                << u"/2"_s;
        QTest::newRow("swipe") << false << QKeySequence() << -150 << u"/2"_s;
        QTest::newRow("mirrored swipe") << true << QKeySequence() << 150 << u"/2"_s;
        QTest::newRow("short swipe") << false << QKeySequence() << -40 << first;
    }

    void keysAndSwipesChangeThePicture()
    {
        QFETCH(const bool, isRightToLeft);
        QFETCH(const QKeySequence, keys);
        QFETCH(const int, swipe);
        ImageViewerFixture fixture(true, isRightToLeft);
        if (swipe != 0)
            fixture.drag({swipe, 0});
        for (int i = 0; i < keys.count(); ++i) {
            fixture.press(keys[i]);
            QTest::qWait(50); // The first key shows the buttons.
        }
        QTEST(fixture.share->url().path(), "shown");
        QCOMPARE(fixture.messages.selectedAttachment(), fixture.share->url());
    }

    void keysZoomPanAndToggleControls()
    {
        ImageViewerFixture fixture;
        fixture.press(QKeySequence(Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Plus));
        QCOMPARE(fixture.state->scale(), 1.953125);
        fixture.press(QKeySequence(Qt::Key_Right, Qt::Key_Down));
        QCOMPARE(fixture.state->offset(), QPointF(-80, -80));
        fixture.press(Qt::Key_Minus);
        QCOMPARE(fixture.state->scale(), 1.5625);
        fixture.press(Qt::Key_0);
        QCOMPARE(fixture.state->scale(), 1.0);
        QCOMPARE(fixture.state->offset(), QPointF());
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_H}) {
            fixture.press(key);
            QVERIFY(!fixture.hasControls());
            fixture.press(key);
            QVERIFY(fixture.hasControls());
        }
        fixture.press(Qt::CTRL | Qt::Key_C);
        QVERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(u"image/jpeg"_s));
    }

    void leavingClearsTheSelectionFirst_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::newRow("Escape") << QList<int>{Qt::Key_Escape};
        QTest::newRow("Back") << QList<int>{Qt::Key_Back};
        QTest::newRow("the button") << QList<int>{Qt::Key_Tab, Qt::Key_Return};
        QTest::newRow("hidden button")
            << QList<int>{Qt::Key_H, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return};
    }

    void leavingClearsTheSelectionFirst()
    {
        QFETCH(const QList<int>, keys);
        ImageViewerFixture fixture;
        QSignalSpy left(fixture.viewer, SIGNAL(backRequested()));
        connect(&fixture.messages, &MessageData::selectedAttachmentChanged, this,
                [&] { QCOMPARE(left.count(), 0); });
        for (const int key : keys) {
            QCOMPARE(left.count(), 0);
            QTest::keyClick(&fixture.window, Qt::Key(key));
        }
        QCOMPARE(left.count(), 1);
        QCOMPARE(fixture.messages.selectedAttachment(), QUrl());
    }

    void keysOperateTheShareMenu()
    {
        ImageViewerFixture fixture;
        QGuiApplication::clipboard()->clear();
        fixture.press(QKeySequence(Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return));
        fixture.press(Qt::Key_Escape);
        QCOMPARE(fixture.messages.selectedAttachment(), address); // Escape only closes the menu.
        fixture.press(QKeySequence(Qt::Key_Return, Qt::Key_Tab, Qt::Key_Return));
        const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(copied->data(u"image/jpeg"_s), fixture.share->file().data);
        QVERIFY(copied->hasImage());
    }

    void sharingNeedsAFile()
    {
        ImageViewerFixture fixture(false);
        QVERIFY(!fixture.share->isReady());
        // Tab skips the disabled share button: from the picture to the back button, and once
        // around.
        fixture.press(QKeySequence(Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return));
        QCOMPARE(fixture.messages.selectedAttachment(), QUrl());
    }
};

QTEST_MAIN(ImageViewerTest)
#include "tst_imageviewer.moc"
