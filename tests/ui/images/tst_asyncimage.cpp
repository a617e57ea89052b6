// SPDX-License-Identifier: MIT
#include "base/errors.h"
#include "testing/fixture.h"
#include "testing/ui/createitem.h"
#include "testing/ui/samples.h"
#include "ui/images/asyncimage.h"
#include "ui/images/imagecache.h"

#include <QtCore/QPointer>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickView>
#include <QtTest/QTest>

extern void qml_register_types_Tolvane_Private();

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

const QUrl address(u"https://cdn.example/photo.png"_s);
const QUrl otherAddress(u"https://cdn.example/other.png"_s);

constexpr const char *page = R"(
    import QtQuick
    import Tolvane.Private
    Rectangle {
        id: page
        property alias view: view
        property url url
        property int placeholders: 0
        property int contents: 0
        property Component content: RoundedImage { Component.onCompleted: ++page.contents }
        width: 200; height: 200; color: "black"
        %1 {
            id: view
            width: 200; height: 200
            url: page.url
            content: page.content
            placeholder: Rectangle { color: "yellow"; Component.onCompleted: ++page.placeholders }
        }
    }
)";

const QString whole = u"CachedAsyncImage"_s;
const QString thumbnail = u"ThumbnailAsyncImage"_s;

/// A window with one view in it.
struct AsyncImageFixture : Fixture
{
    explicit AsyncImageFixture(const QString &type = whole, const QUrl &url = address)
    {
        session->handler = [this](const UrlRequest &request) -> UrlResponse {
            if (failing)
                throw UrlError(UrlError::timedOut);
            return pictureResponse({40, 30}, request.url == address ? Qt::red : Qt::blue);
        };
        QString source = QString::fromLatin1(page).arg(type);
        if (type == thumbnail)
            source.replace(u"id: view"_s, u"id: view; thumbnailSize: Qt.size(20, 20)"_s);
        root = createItem(*window.engine(), source.toUtf8(), {{u"url"_s, url}}).release();
        item = root->property("view").value<AsyncImage *>();
    }

    bool show()
    {
        window.setContent({}, nullptr, root);
        window.show();
        return QTest::qWaitForWindowExposed(&window);
    }

    int placeholders() const { return root->property("placeholders").toInt(); }
    int contents() const { return root->property("contents").toInt(); }
    QColor middle() { return window.grabWindow().pixelColor(100, 100); }

    QQuickView window;
    QQuickItem *root;
    AsyncImage *item;
    bool failing = false;
};

} // namespace

class AsyncImageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qml_register_types_Tolvane_Private(); }

    void thePictureReplacesThePlaceholder_data()
    {
        QTest::addColumn<QString>("type");
        QTest::newRow("whole") << whole;
        QTest::newRow("thumbnail") << thumbnail;
    }

    void thePictureReplacesThePlaceholder()
    {
        QFETCH(const QString, type);
        const QSize size = type == whole ? QSize(40, 30) : QSize(27, 20);
        AsyncImageFixture fixture(type);
        fixture.session->held = true;
        QCOMPARE(fixture.placeholders(), 0); // Not before it appears.
        QVERIFY(fixture.show());
        QCOMPARE(fixture.middle(), QColor(Qt::yellow));
        QVERIFY(fixture.item->isLoading());
        fixture.session->release();
        QCOMPARE(fixture.middle(), QColor(Qt::red));
        QCOMPARE(fixture.item->image().size(), size * fixture.window.effectiveDevicePixelRatio());
        QCOMPARE(fixture.placeholders(), 1);
        QCOMPARE(fixture.contents(), 1);
        QVERIFY(!fixture.item->isLoading());
    }

    void cachedPicturesShowInTheFirstFrame_data() { thePictureReplacesThePlaceholder_data(); }

    void cachedPicturesShowInTheFirstFrame()
    {
        QFETCH(const QString, type);
        AsyncImageFixture fixture(type);
        ImageCache::shared().responses().store(pictureResponse({40, 30}), requestFor(address));
        std::atomic<int> frames = 0;
        std::atomic<int> framesBeforeContent = 0;
        connect(
            &fixture.window, &QQuickWindow::beforeSynchronizing, this,
            [&] {
                framesBeforeContent += fixture.contents() == 0 ? 1 : 0;
                ++frames;
            },
            Qt::DirectConnection); // While the main thread is blocked.
        QVERIFY(fixture.show());
        QTRY_VERIFY(frames > 0);
        QCOMPARE(fixture.middle(), QColor(Qt::red));
        QCOMPARE(fixture.placeholders(), type == whole ? 0 : 1);
        if (type == whole)
            QCOMPARE(framesBeforeContent.load(), 0);
        QCOMPARE(fixture.contents(), 1);
        QVERIFY(fixture.session->requests.isEmpty());
    }

    void anotherUrlRestartsTheLoad()
    {
        AsyncImageFixture fixture;
        QVERIFY(fixture.show());
        settle();
        QCOMPARE(fixture.middle(), QColor(Qt::red));

        fixture.session->held = true;
        fixture.root->setProperty("url", otherAddress);
        QCOMPARE(fixture.middle(), QColor(Qt::yellow)); // Never the picture of another address.
        fixture.root->setProperty("url", QUrl());
        fixture.session->release();
        QCOMPARE(fixture.middle(), QColor(Qt::yellow));
        fixture.root->setProperty("url", otherAddress);
        QCOMPARE(fixture.middle(), QColor(Qt::blue)); // The abandoned load has filled the caches.
        QCOMPARE(fixture.session->requests.size(), 2);
        QCOMPARE(fixture.placeholders(), 1); // Creating one takes longer than all else.
    }

    void aPressLoadsABrokenPictureAgain()
    {
        AsyncImageFixture fixture;
        fixture.failing = true;
        fixture.item->setPlaceholder(nullptr);
        QVERIFY(fixture.show());
        settle();
        QVERIFY(fixture.item->hasFailed());
        fixture.failing = false;
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, {100, 100});
        settle();
        QVERIFY(!fixture.item->image().isNull());
    }

    /// A Loader deletes its item's context immediately, but its item later.
    void aPictureArrivesDuringDeferredDeletion()
    {
        AsyncImageFixture fixture;
        fixture.session->held = true;
        const auto loader =
            createItem(*fixture.window.engine(),
                       "import QtQuick\nimport Tolvane.Private\n"
                       "Loader { sourceComponent: CachedAsyncImage {\n"
                       "url: 'https://cdn.example/photo.png'; content: RoundedImage {} } }");
        QVERIFY(fixture.show());
        loader->setParentItem(fixture.root);
        settle();
        const QPointer<QObject> view = loader->property("item").value<QObject *>();
        QVERIFY(view);
        loader->setProperty("active", false);
        fixture.session->release();
        settle();
        QTRY_VERIFY(!view);
    }
};

QTEST_MAIN(AsyncImageTest)
#include "tst_asyncimage.moc"
