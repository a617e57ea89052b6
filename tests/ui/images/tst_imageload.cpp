// SPDX-License-Identifier: MIT
#include "base/errors.h"
#include "testing/fixture.h"
#include "testing/ui/samples.h"
#include "ui/images/imagecache.h"
#include "ui/images/imageload.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

const QUrl address(u"https://cdn.example/a%20photo.png?x=1"_s);
const QString key = ImageCache::key(address);
const QSize fullSize(300, 200);

UrlResponse page()
{
    return {.status = 404, .headers = {{"Content-Type", "image/png"}}, .body = "<html>Gone"};
}

struct ImageLoadFixture : Fixture
{
    ImageLoadFixture()
    {
        session->handler = [this](const UrlRequest &) {
            if (failing)
                throw UrlError(UrlError::timedOut);
            return response;
        };
    }

    static std::shared_ptr<ImageLoad> view(std::optional<QSizeF> thumbnail = {},
                                           const QUrl &url = address)
    {
        return std::make_shared<ImageLoad>(url, thumbnail);
    }

    /// Calls the functions that a view calls when it appears.
    static void appear(ImageLoad &load, qreal scale = 1)
    {
        load.loadFromCaches();
        load.start(scale);
    }

    qsizetype requestCount() const { return session->requests.size(); }

    UrlResponse response = pictureResponse(fullSize);
    bool failing = false;
};

} // namespace

class ImageLoadTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPictureIsLoadedAndCached()
    {
        ImageLoadFixture fixture;
        const auto view = fixture.view();
        QVERIFY(!view->isLoading());
        fixture.appear(*view);
        QVERIFY(view->isLoading() && view->image().isNull());
        fixture.appear(*view); // While it loads.
        settle();
        QVERIFY(!view->isLoading());
        QCOMPARE(view->image().size(), fullSize);
        QCOMPARE(fixture.requestCount(), 1);

        const UrlRequest &request = fixture.session->requests.constFirst();
        QCOMPARE(request.url, address);
        QCOMPARE(request.method, "GET");
        QVERIFY(request.headers.isEmpty() && request.isAnonymous);
        QCOMPARE(request.timeout, std::chrono::seconds(60));
        QCOMPARE(request.backend, QUrl(u"https://api.tolvane.example/api"_s));

        QCOMPARE(ImageCache::shared().image(key).size(), fullSize);
        const auto kept = ImageCache::shared().responses().cachedResponse(requestFor(address));
        QVERIFY(kept && kept->body == fixture.response.body);
        QVERIFY(fixture.log->lines.isEmpty());
    }

    void onlySmallPicturesAreDecodedAtOnce()
    {
        ImageLoadFixture fixture;
        ImageCache::shared().responses().store(pictureResponse({3000, 1500}), requestFor(address));
        const auto view = fixture.view();
        view->loadFromCaches();
        QVERIFY(view->image().isNull());
        view->start(1);
        settle();
        QCOMPARE(view->image().size(), QSize(3000, 1500));
        QCOMPARE(fixture.requestCount(), 0);
    }

    void networkErrorsAreRetriedAtTheNextAppearance()
    {
        ImageLoadFixture fixture;
        fixture.failing = true;
        const auto view = fixture.view();
        fixture.appear(*view);
        settle();
        QVERIFY(!view->isLoading() && view->hasFailed() && view->image().isNull());
        fixture.failing = false;
        fixture.appear(*view);
        settle();
        QCOMPARE(view->image().size(), fullSize);
        QCOMPARE(fixture.requestCount(), 2);
        QVERIFY(fixture.log->lines.isEmpty() && fixture.delegate->events.isEmpty());
    }

    void otherContentIsCachedAndStaysLoading()
    {
        for (const auto thumbnail : {std::optional<QSizeF>(), std::optional(QSizeF(10, 10))}) {
            ImageLoadFixture fixture;
            fixture.response = page();
            const auto view = fixture.view(thumbnail);
            fixture.appear(*view);
            settle();
            QVERIFY(view->isLoading() && view->hasFailed() && view->image().isNull());
            fixture.appear(*view);
            settle();
            QCOMPARE(fixture.requestCount(), 1); // This view loads for the rest of its life.
            const auto kept = ImageCache::shared().responses().cachedResponse(requestFor(address));
            QVERIFY(kept && kept->status == 404);

            // For another view, the page in the cache is a miss.
            fixture.response = pictureResponse(fullSize);
            const auto other = fixture.view(thumbnail);
            fixture.appear(*other);
            settle();
            QVERIFY(!other->image().isNull());
            QCOMPARE(fixture.requestCount(), 2);

            view->retry(1);
            settle();
            QVERIFY(!view->image().isNull() && !view->hasFailed());
        }
    }

    void thumbnailsShowTheWholePictureAndAreNotCached()
    {
        ImageLoadFixture fixture;
        const auto small = fixture.view(QSizeF(20, 20));
        fixture.appear(*small, 3);
        settle();
        QCOMPARE(small->image().size(), QSize(90, 60)); // In device pixels.
        QCOMPARE(ImageCache::shared().image(key).size(), fullSize);

        const auto large = fixture.view(QSizeF(50, 50));
        large->loadFromCaches();
        QVERIFY(large->image().isNull()); // Thumbnails always begin with the placeholder.
        large->start(1);
        settle();
        QCOMPARE(large->image().size(), QSize(75, 50));
        QCOMPARE(ImageCache::shared().image(key).size(), fullSize);

        const auto whole = fixture.view();
        whole->loadFromCaches();
        QCOMPARE(whole->image().size(), fullSize);
        QCOMPARE(fixture.requestCount(), 1);
    }

    void aViewMayBeDestroyedWhileLoading()
    {
        ImageLoadFixture fixture;
        fixture.session->held = true;
        auto view = fixture.view();
        const std::weak_ptr<ImageLoad> watched = view;
        fixture.appear(*view);
        view.reset();
        QVERIFY(!watched.expired());
        fixture.session->release();
        QVERIFY(watched.expired());
        QCOMPARE(ImageCache::shared().image(key).size(), fullSize);
    }

    void unsafeAddressesAreNeverLoaded()
    {
        for (const char *text :
             {"", "photo.png", "/etc/passwd", "//cdn.example/a.png", "file:///etc/passwd",
              "data:image/png;base64,iVBORw0KGgo=", "qrc:/a.png", "ftp://cdn.example/a.png",
              "https://", "https:///a.png", "http://[half", "javascript:alert(1)"}) {
            for (const auto thumbnail : {std::optional<QSizeF>(), std::optional(QSizeF(10, 10))}) {
                ImageLoadFixture fixture;
                const auto view = fixture.view(thumbnail, QUrl(QString::fromLatin1(text)));
                fixture.appear(*view);
                settle();
                QVERIFY2(!view->isLoading() && view->image().isNull(), text);
                QVERIFY2(fixture.requestCount() == 0, text);
            }
        }
    }

    void theMemoryCacheIsBounded()
    {
        ImageLoadFixture fixture;
        ImageCache &cache = ImageCache::shared();
        const auto name = [](int i) { return QString::number(i); };
        for (int i = 0; i < 101; ++i) {
            cache.image(name(0)); // It stays, because it was used recently.
            cache.insert(name(i), solidImage({1, 1}, Qt::red));
        }
        QVERIFY(!cache.image(name(0)).isNull() && !cache.image(name(100)).isNull());
        QVERIFY(cache.image(name(1)).isNull());

        // 20 MiB each, three of which are too much.
        const QImage large(2560, 2048, QImage::Format_RGB32);
        for (int i = 0; i < 3; ++i)
            cache.insert(u"large"_s + name(i), large);
        QVERIFY(cache.image(u"large0"_s).isNull() && cache.image(name(100)).isNull());
        QVERIFY(!cache.image(u"large1"_s).isNull() && !cache.image(u"large2"_s).isNull());
        cache.insert(u"larger"_s, QImage(4000, 4000, QImage::Format_RGB32));
        QVERIFY(cache.image(u"larger"_s).isNull() && !cache.image(u"large2"_s).isNull());
    }
};

QTEST_GUILESS_MAIN(ImageLoadTest)
#include "tst_imageload.moc"
