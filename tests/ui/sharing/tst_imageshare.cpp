// SPDX-License-Identifier: MIT
#include "platform/system/files.h"
#include "testing/fixture.h"
#include "testing/ui/samples.h"
#include "ui/images/imagecache.h"
#include "ui/sharing/imageshare.h"
#include "ui/sharing/loadedimage.h"

#include <QtCore/QMimeData>
#include <QtGui/QImageReader>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

extern void qml_register_types_Tolvane_Private();

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

const QUrl address(u"https://cdn.example/photo.png"_s);

struct ImageShareFixture : Fixture
{
    ImageShareFixture() { qml_register_types_Tolvane_Private(); }

    std::unique_ptr<LoadedImage> load()
    {
        QQmlComponent component(&engine);
        component.setData("import Tolvane.Private\nLoadedImage {}", QUrl());
        return std::unique_ptr<LoadedImage>(qobject_cast<LoadedImage *>(
            component.createWithInitialProperties({{u"url"_s, address}})));
    }

    static void keep(const QByteArray &bytes)
    {
        ImageCache::shared().responses().store({.status = 200, .headers = {}, .body = bytes},
                                               requestFor(address));
    }

    QQmlEngine engine;
    QTemporaryDir folder;
};

const QByteArray png = encodedImage(solidImage({40, 30}, Qt::red), "png");

void readFromTheCache(const QByteArray &before, const QByteArray &during, const QByteArray &after,
                      const QList<bool> &expected)
{
    ImageShareFixture fixture;
    const auto keep = [&](const QByteArray &bytes) {
        if (!bytes.isEmpty())
            fixture.keep(bytes);
        settle();
    };
    QList<bool> loaded;
    keep(before);
    const auto load = fixture.load();
    settle();
    loaded += !load->image().isNull();
    keep(during);
    for (const auto span : {400ms, 100ms}) {
        fixture.clock->advance(span);
        loaded += !load->image().isNull();
    }
    keep(after);
    fixture.clock->advance(60s);
    loaded += !load->image().isNull();
    QCOMPARE(loaded, expected);
    QVERIFY(fixture.session->requests.isEmpty());
    QCOMPARE(fixture.clock->sleeperCount(), 0);
}

} // namespace

class ImageShareTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePictureIsReadFromTheCache()
    {
        // The bytes that enter the cache before the load, during its wait, and after its end; then
        // whether the picture is loaded at once, after 0.4 s, after 0.5 s, and later.
        const QByteArray page = "<html>";
        readFromTheCache(png, {}, {}, {true, true, true, true});
        readFromTheCache({}, png, {}, {false, false, true, true});
        readFromTheCache(page, png, {}, {false, false, true, true});
        readFromTheCache({}, page, {}, {false, false, false, false});
        readFromTheCache({}, {}, png, {false, false, false, false});
    }

    void destructionCancelsTheWait()
    {
        ImageShareFixture fixture;
        fixture.load();
        settle();
        QCOMPARE(fixture.clock->sleeperCount(), 0);
        QCOMPARE(fixture.clock->requestedSleeps(), QList<double>{0.5});
    }

    void theFileIsAJpeg()
    {
        ImageShareFixture fixture;
        ImageShare share;
        QSignalSpy changes(&share, &ImageShare::fileChanged);
        QImage picture = solidImage({40, 30}, Qt::transparent, QImage::Format_ARGB32_Premultiplied);
        share.setImage(picture);
        settle();
        QVERIFY(share.isReady());
        const QImage read = QImage::fromData(share.file().data, "jpeg");
        QCOMPARE(read.size(), picture.size());
        QVERIFY(qGray(read.pixel(20, 15)) > 250); // On white.
        QCOMPARE(share.filename(), ImageFile::filenameAt(fixture.clock->now()));
        const std::pair<qint64, QString> names[] = {{567, u"567"_s}, {500, u"5"_s}, {0, u"0"_s}};
        for (const auto &[fraction, digits] : names)
            QCOMPARE(
                ImageFile::filenameAt(QDateTime::fromMSecsSinceEpoch(1718031234000 + fraction)),
                u"image_1718031234.%1.jpg"_s.arg(digits));

        const int count = int(changes.count());
        const QByteArray data = share.file().data;
        fixture.clock->advance(1s);
        share.setImage(picture); // The same picture.
        settle();
        QCOMPARE(changes.count(), count);
        share.setImage({});
        QVERIFY(!share.isReady());
    }

    void savingReportsItsResult()
    {
        ImageShareFixture fixture;
        ImageShare share;
        QSignalSpy saved(&share, &ImageShare::saved);
        QSignalSpy failed(&share, &ImageShare::failed);
        const QString path = fixture.folder.filePath(u"a b.jpg"_s);
        share.save(QUrl::fromLocalFile(path));
        settle();
        QVERIFY(saved.isEmpty() && failed.isEmpty()); // There is no picture yet.
        share.setImage(solidImage({40, 30}, Qt::red));
        settle();
        share.save(QUrl::fromLocalFile(path));
        settle();
        QCOMPARE(saved.value(0).value(0).toString(), path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), share.file().data);

        for (const QString &bad :
             {fixture.folder.filePath(u"no/such/folder.jpg"_s), fixture.folder.path()}) {
            share.save(QUrl::fromLocalFile(bad));
            settle();
            QVERIFY(!failed.takeFirst().value(0).toString().isEmpty());
        }
        QCOMPARE(saved.count(), 1);
        QCOMPARE(QDir(fixture.folder.path()).entryList(QDir::Files), QStringList{u"a b.jpg"_s});
    }

    void unusedFileNames()
    {
        ImageShareFixture fixture;
        const QString folder = fixture.folder.filePath(u"to be made"_s);
        QStringList names;
        for (int i = 0; i < 3; ++i) {
            const QString path = files::unusedPath(folder, u"image_1.5.jpg"_s);
            files::write(path, "x");
            names += QFileInfo(path).fileName();
        }
        QCOMPARE(names,
                 QStringList({u"image_1.5.jpg"_s, u"image_1.5 (2).jpg"_s, u"image_1.5 (3).jpg"_s}));
    }

    void aDragCarriesTheFile()
    {
        ImageShareFixture fixture;
        ImageShare share;
        share.setImage(solidImage({40, 30}, Qt::red));
        settle();
        share.prepareDrag();
        settle();
        const std::unique_ptr<QMimeData> data(share.makeMimeData());
        QCOMPARE(data->urls().size(), 1);
        const QFileInfo file(data->urls().constFirst().toLocalFile());
        QCOMPARE(file.fileName(), share.filename());
        QCOMPARE(file.size(), share.file().data.size());
        QCOMPARE(data->data(u"image/jpeg"_s), share.file().data);
    }
};

QTEST_MAIN(ImageShareTest)
#include "tst_imageshare.moc"
