// SPDX-License-Identifier: MIT
#include "platform/network/urlcache.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace tolvane;

namespace {

constexpr qint64 mebibyte = 1'048'576;

UrlRequest request(const QString &name = u"photo"_s)
{
    UrlRequest request;
    request.url = QUrl(u"https://cdn.example/"_s + name + u"?a=1&b=%20#top"_s);
    return request;
}

UrlResponse response(const QByteArray &body, int status = 200)
{
    return {.status = status,
            .headers = {{"Content-Type", "image/png"}, {"ETag", "\"x\""}},
            .body = body};
}

struct UrlCacheFixture
{
    std::unique_ptr<UrlCache> cache(qint64 memory = mebibyte, qint64 disk = 100 * mebibyte) const
    {
        return makeUrlCache({.memoryCapacity = memory, .diskCapacity = disk, .diskPath = path});
    }

    QStringList files() const
    {
        QStringList files;
        QDirIterator each(path, QDir::Files, QDirIterator::Subdirectories);
        while (each.hasNext())
            files += each.next();
        return files;
    }

    qint64 sizeOnDisk() const
    {
        qint64 size = 0;
        for (const QString &file : files()) {
            struct stat status = {};
            stat(QFile::encodeName(file).constData(), &status);
            size += status.st_blocks * 512;
        }
        return size;
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"below/images"_s);
};

/// Limits the size of files, which looks like a full disk to this process.
struct FullDisk
{
    explicit FullDisk(rlim_t size)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit limit = before;
        limit.rlim_cur = size;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }

    rlimit before{};
};

void damageBy(void (*damage)(QFile &file))
{
    const UrlCacheFixture fixture;
    fixture.cache()->store(response("the picture's bytes"), request());
    QFile file(fixture.files().constFirst());
    QVERIFY(file.open(QIODevice::ReadWrite));
    damage(file);
    file.close();
    const auto cache = fixture.cache();
    QVERIFY(!cache->cachedResponse(request(), UrlCache::Lookup::quick));
    QVERIFY(!cache->cachedResponse(request()));
    cache->store(response("anew"), request());
    QCOMPARE(fixture.cache()->cachedResponse(request())->body, "anew");
}

} // namespace

class UrlCacheTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void responsesPersist()
    {
        const UrlCacheFixture fixture;
        fixture.cache()->store(response("page", 404), request());
        const auto kept = fixture.cache()->cachedResponse(request());
        QVERIFY(kept);
        QCOMPARE(kept->status, 404);
        QCOMPARE(kept->body, "page");
        QCOMPARE(kept->header("etag"), "\"x\"");
        QVERIFY(!fixture.cache()->cachedResponse(request(u"other"_s)));
        fixture.cache()->store(response("newer"), request());
        QCOMPARE(fixture.cache()->cachedResponse(request())->body, "newer");
        QCOMPARE(fixture.files().size(), 1);
        QCOMPARE(QFileInfo(fixture.path).permissions() &
                     ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser),
                 QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void quickLookupsSkipLargeFiles()
    {
        const UrlCacheFixture fixture;
        const QByteArray large(2 * mebibyte, 'x');
        {
            const auto cache = fixture.cache(10 * mebibyte);
            cache->store(response(large), request(u"large"_s));
            cache->store(response("small"), request(u"small"_s));
            QVERIFY(cache->cachedResponse(request(u"large"_s), UrlCache::Lookup::quick));
        }
        const auto cache = fixture.cache(10 * mebibyte);
        QVERIFY(cache->cachedResponse(request(u"small"_s), UrlCache::Lookup::quick));
        QVERIFY(!cache->cachedResponse(request(u"large"_s), UrlCache::Lookup::quick));
        QCOMPARE(cache->cachedResponse(request(u"large"_s))->body, large);
        QVERIFY(cache->cachedResponse(request(u"large"_s), UrlCache::Lookup::quick));
    }

    void bothLevelsAreBounded()
    {
        const UrlCacheFixture fixture;
        const auto cache = fixture.cache(mebibyte, 3 * mebibyte);
        for (int i = 0; i < 10; ++i) {
            const QByteArray body(700'000, char('a' + i));
            cache->store(response(body), request(QString::number(i)));
            QCOMPARE(cache->cachedResponse(request(QString::number(i)))->body, body);
        }
        QVERIFY(fixture.sizeOnDisk() <= 3 * mebibyte);
        QVERIFY(!cache->cachedResponse(request(u"0"_s)));
        QVERIFY(cache->cachedResponse(request(u"8"_s))); // From disk: memory holds only one.
        cache->store(response(QByteArray(4 * mebibyte, 'x')), request(u"too large"_s));
        for (int i = 0; i < 1000; ++i) // Each takes a block of 4 KiB.
            cache->store(response("x"), request(u"small %1"_s.arg(i)));
        QVERIFY(fixture.sizeOnDisk() <= 3 * mebibyte);
        UrlResponse largeHead = response({});
        largeHead.headers.emplaceBack("X", QByteArray(2 * mebibyte, 'x'));
        const auto inMemory = fixture.cache(mebibyte, 0);
        inMemory->store(largeHead, request(u"large head"_s));
        QVERIFY(!inMemory->cachedResponse(request(u"large head"_s)));
    }

    void damagedEntriesAreMisses()
    {
        damageBy([](QFile &file) { file.resize(0); });
        damageBy([](QFile &file) { file.resize(file.size() - 1); });
        damageBy([](QFile &file) { file.resize(40); });
        damageBy([](QFile &file) { file.seek(file.size() - 5) && file.write("X"); });
        damageBy([](QFile &file) { file.seek(file.size()) && file.write("tail"); });
        damageBy([](QFile &file) { file.resize(0) && file.write(QByteArray(5000, 'f')); });
        damageBy([](QFile &file) { // Garbage after a valid start.
            file.seek(12) && file.write(QByteArray::fromHex("ffffffff").repeated(50));
        });
    }

    void memoryWorksWithoutADisk_data()
    {
        QTest::addColumn<bool>("isFull");
        QTest::newRow("full disk") << true;
        QTest::newRow("no folder can be made") << false;
    }

    void memoryWorksWithoutADisk()
    {
        QFETCH(const bool, isFull);
        const UrlCacheFixture fixture;
        const QByteArray body(500'000, 'x');
        std::optional<FullDisk> full;
        if (isFull) {
            full.emplace(100'000);
        } else {
            QFile file(fixture.folder.filePath(u"below"_s)); // In the folder's place.
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        const auto cache = fixture.cache();
        cache->store(response(body), request());
        QCOMPARE(cache->cachedResponse(request())->body, body);
        full.reset();
        QVERIFY(!fixture.cache()->cachedResponse(request()));
        QVERIFY(fixture.files().isEmpty());
        if (isFull) {
            cache->store(response(body), request());
            QVERIFY(fixture.cache()->cachedResponse(request()));
        }
    }

    void severalCachesShareAFolder()
    {
        const UrlCacheFixture fixture;
        std::atomic<int> wrong = 0;
        std::atomic<int> seen = 0;
        const auto work = [&](int seed) {
            const auto cache = fixture.cache(0); // Nothing stays in memory.
            for (int i = 0; i < 60; ++i) {
                const QString name = QString::number(i % 4);
                cache->store(response(QByteArray(20'000 + seed, char('a' + i % 4))), request(name));
                if (const auto read = cache->cachedResponse(request(name))) {
                    ++seen;
                    wrong += read->body.count(char('a' + i % 4)) != read->body.size();
                }
            }
        };
        {
            const std::jthread one(work, 1);
            const std::jthread two(work, 2);
            const std::jthread three(work, 3);
        }
        QCOMPARE(wrong.load(), 0);
        QVERIFY(seen > 0);
        for (int i = 0; i < 4; ++i)
            QVERIFY(fixture.cache()->cachedResponse(request(QString::number(i))));
    }
};

QTEST_GUILESS_MAIN(UrlCacheTest)
#include "tst_urlcache.moc"
