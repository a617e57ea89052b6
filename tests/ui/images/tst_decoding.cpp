// SPDX-License-Identifier: MIT
#include "testing/ui/samples.h"
#include "ui/images/decoding.h"

#include <QtCore/QBuffer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QtEndian>
#include <QtGui/QColorSpace>
#include <QtGui/QImageWriter>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane::test;
namespace images = tolvane::images;

namespace {

QByteArray dataFile(const char *name)
{
    QFile file(QStringLiteral(TOLVANE_SOURCES "/tests/ui/images/data/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray hugePng(int side)
{
    return encodedImage(QImage(side, side, QImage::Format_Mono), "png");
}

QImage halves(const QSize &size, const QColor &left, const QColor &right)
{
    QImage image = solidImage(size, left);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = size.width() / 2; x < size.width(); ++x)
            image.setPixelColor(x, y, right);
    }
    return image;
}

/// A PNG with these channel values in Display P3, whose red is wider than that of sRGB.
QByteArray wideGamutPng(const QColor &color)
{
    QImage image = solidImage({4, 4}, color);
    image.setColorSpace(QColorSpace::DisplayP3);
    return encodedImage(image, "png");
}

/// A segment of a JPEG, inserted many times behind its first two bytes.
QByteArray withSegments(const QByteArray &jpeg, uchar marker, const QByteArray &content, int count)
{
    QByteArray segment("\xff");
    segment += char(marker);
    segment += char((content.size() + 2) >> 8);
    segment += char((content.size() + 2) & 0xff);
    return QByteArray(jpeg).insert(2, (segment + content).repeated(count));
}

QByteArray progressiveJpeg(const QSize &size)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    writer.write(solidImage(size, QColor(200, 30, 30)));
    return buffer.data();
}

/// A picture whose last scan comes again and again.
QByteArray withScans(const QByteArray &jpeg, int count)
{
    const qsizetype last = jpeg.lastIndexOf("\xff\xda");
    return jpeg.first(last) + jpeg.sliced(last).chopped(2).repeated(count) + "\xff\xd9";
}

/// A JPEG that declares another size in its frame header.
QByteArray claiming(const QByteArray &jpeg, quint16 side)
{
    QByteArray claim = jpeg;
    const qsizetype frame = claim.indexOf("\xff\xc0");
    qToBigEndian(side, claim.data() + frame + 5);
    qToBigEndian(side, claim.data() + frame + 7);
    return claim;
}

/// A PNG with many texts that are long once they are inflated.
QByteArray withTexts(const QByteArray &png, int count)
{
    const QByteArray content =
        QByteArray("zTXtkey\0\0", 9) + qCompress(QByteArray(7'900'000, 'x'), 9).sliced(4);
    quint32 checksum = ~0U;
    for (const char byte : content) {
        checksum ^= uchar(byte);
        for (int bit = 0; bit < 8; ++bit)
            checksum = (checksum >> 1) ^ (checksum & 1 ? 0xEDB88320U : 0U);
    }
    const auto number = [](quint32 value) {
        QByteArray bytes(4, '\0');
        qToBigEndian(value, bytes.data());
        return bytes;
    };
    constexpr qsizetype afterHeader = 33;
    const QByteArray chunk = number(quint32(content.size() - 4)) + content + number(~checksum);
    return QByteArray(png).insert(afterHeader, chunk.repeated(count));
}

/// A GIF whose first frame comes again and again.
QByteArray withFrames(const QByteArray &gif, int count)
{
    const qsizetype first = gif.indexOf('!', 13);
    return gif.first(first) + gif.sliced(first).chopped(1).repeated(count) + ';';
}

bool isClose(QRgb a, QRgb b, int tolerance)
{
    return qAbs(qRed(a) - qRed(b)) <= tolerance && qAbs(qGreen(a) - qGreen(b)) <= tolerance &&
           qAbs(qBlue(a) - qBlue(b)) <= tolerance && qAbs(qAlpha(a) - qAlpha(b)) <= tolerance;
}

} // namespace

class DecodingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void picturesAreDecodedAndOthersRejected_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QSize>("size"); // Empty: rejected.
        QTest::addColumn<QColor>("middle");
        const QColor red(200, 50, 50);
        const QByteArray jpeg = encodedImage(solidImage({60, 40}, red), "jpeg");
        const QImage clear = solidImage({5, 5}, QColor(0, 128, 0, 128), QImage::Format_ARGB32);
        QTest::newRow("png") << encodedImage(solidImage({3, 2}, red), "png") << QSize(3, 2) << red;
        QTest::newRow("transparent png")
            << encodedImage(clear, "png") << QSize(5, 5) << QColor(0, 128, 0, 128);
        QTest::newRow("one pixel")
            << encodedImage(solidImage({1, 1}, red), "png") << QSize(1, 1) << red;
        QTest::newRow("16 bits a channel")
            << encodedImage(solidImage({7, 7}, red, QImage::Format_RGBA64), "png") << QSize(7, 7)
            << red;
        QTest::newRow("jpeg") << jpeg << QSize(60, 40) << red;
        QTest::newRow("CMYK jpeg") << dataFile("cmyk.jpg") << QSize(24, 16) << red;
        QTest::newRow("rotated jpeg") << withOrientation(jpeg, 6) << QSize(40, 60) << red;
        QTest::newRow("truncated jpeg") << jpeg.first(jpeg.size() - 20) << QSize(60, 40) << red;
        QTest::newRow("first frame of a gif")
            << dataFile("animated.gif") << QSize(8, 6) << QColor(0, 255, 0);
        QTest::newRow("webp") << encodedImage(solidImage({9, 9}, red), "webp") << QSize(9, 9)
                              << red;
        QTest::newRow("wide gamut")
            << wideGamutPng(QColor(200, 100, 100)) << QSize(4, 4) << QColor(215, 94, 96);

        const QColor none;
        const QByteArray png = encodedImage(solidImage({3, 2}, red), "png");
        const QByteArray webp = encodedImage(solidImage({9, 9}, red), "webp");
        const QList<QPair<const char *, QByteArray>> liars = {
            {"a PNG of 65,000 x 65,000",
             QByteArray::fromHex("89504e470d0a1a0a0000000d494844520000fde80000fde8"
                                 "0806000000a257d90a") +
                 png.sliced(33)},
            {"a GIF of 65,000 x 65,000",
             dataFile("animated.gif").replace(6, 4, "\xe8\xfd\xe8\xfd")},
            {"a WebP of 65,000 x 65,000",
             QByteArray::fromHex("52494646ffffff0057454250565038580a00000000000000"
                                 "e7fd00e7fd00") +
                 webp.sliced(12)},
            {"a PNG as a JPEG", "\xff\xd8\xff" + png},
            {"a JPEG as a GIF", "GIF89a" + jpeg}};
        for (const auto &[name, bytes] : liars)
            QTest::newRow(name) << bytes << QSize() << none;
        QTest::newRow("empty") << QByteArray() << QSize() << none;
        QTest::newRow("HTML") << QByteArray("<!doctype html><p>404") << QSize() << none;
        QTest::newRow("svg") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' "
                                           "height='9'><rect width='9' height='9'/></svg>")
                             << QSize() << none;
        QTest::newRow("bmp") << encodedImage(solidImage({3, 2}, red), "bmp") << QSize() << none;
        QTest::newRow("png header only")
            << encodedImage(solidImage({3, 2}, red), "png").first(20) << QSize() << none;
        QTest::newRow("100 megapixels in a few KB") << hugePng(10'000) << QSize() << none;
        const QColor brick(200, 30, 30);
        QTest::newRow("100,000 comments")
            << withSegments(jpeg, 0xFE, "x", 100'000) << QSize(60, 40) << red;
        QTest::newRow("25 MB of profiles")
            << withSegments(jpeg, 0xE2, "ICC_PROFILE" + QByteArray(65'000, 'x'), 400)
            << QSize(60, 40) << red;
        QTest::newRow("progressive") << progressiveJpeg({800, 600}) << QSize(800, 600) << brick;
        QTest::newRow("40,000 scans")
            << withScans(progressiveJpeg({4000, 3000}), 40'000) << QSize() << none;
        QTest::newRow("a header of 400 megapixels")
            << claiming(encodedImage(solidImage({8, 8}, red), "jpeg"), 20'000) << QSize() << none;
        QTest::newRow("200 texts of 8 MB")
            << withTexts(encodedImage(solidImage({3, 2}, red), "png"), 200) << QSize(3, 2) << red;
        QTest::newRow("100,000 frames")
            << withFrames(dataFile("animated.gif"), 100'000) << QSize(8, 6) << QColor(0, 255, 0);
        QTest::newRow("jpeg header, then garbage")
            << QByteArray("\xff\xd8\xff") + QByteArray(500, '\x5a') << QSize() << none;
    }

    void picturesAreDecodedAndOthersRejected()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QSize, size);
        QFETCH(const QColor, middle);
        QElapsedTimer timer;
        timer.start();
        const QList<QImage> results = {images::decoded(bytes),
                                       images::decodedThumbnail(bytes, {1000, 1000})};
        QVERIFY2(timer.elapsed() < 3000, qPrintable(QString::number(timer.elapsed())));
        for (const QImage &image : results) {
            QCOMPARE(image.isNull(), size.isEmpty());
            if (image.isNull())
                continue;
            QCOMPARE(image.size(), size);
            QVERIFY(image.format() == QImage::Format_RGB32 ||
                    image.format() == QImage::Format_ARGB32_Premultiplied);
            const QRgb pixel = image.pixelColor(size.width() / 2, size.height() / 2).rgba();
            QVERIFY2(isClose(pixel, middle.rgba(), 6), qPrintable(QColor(pixel).name()));
        }
    }

    void orientationIsApplied()
    {
        // Red on the left, rotated by 90 degrees: red on top.
        const QByteArray jpeg =
            withOrientation(encodedImage(halves({160, 80}, Qt::red, Qt::blue), "jpeg"), 6);
        for (const QImage &image :
             {images::decoded(jpeg), images::decodedThumbnail(jpeg, {20, 20})}) {
            QVERIFY(image.height() == 2 * image.width());
            const int x = image.width() / 2;
            QVERIFY(isClose(image.pixel(x, image.height() / 5), qRgb(254, 0, 0), 10));
            QVERIFY(isClose(image.pixel(x, image.height() * 4 / 5), qRgb(0, 0, 254), 10));
        }
    }

    void thumbnailsFillTheirTarget()
    {
        const std::tuple<QSize, QSize, QSize> cases[] = {
            {{800, 400}, {100, 100}, {200, 100}}, // Wide.
            {{300, 600}, {100, 50}, {100, 200}},  // Tall.
            {{80, 40}, {100, 100}, {80, 40}},     // Never larger.
            {{2000, 20}, {10, 10}, {200, 2}},     // Very long.
            {{80, 40}, {0, 100}, {80, 40}}};      // No target.
        for (const auto &[picture, target, thumbnail] : cases) {
            const QImage image = solidImage(picture, Qt::darkCyan);
            QCOMPARE(images::thumbnail(image, target).size(), thumbnail);
            for (const char *format : {"png", "jpeg"})
                QCOMPARE(images::decodedThumbnail(encodedImage(image, format), target).size(),
                         thumbnail);
        }
    }

    void decodingEndsInTime()
    {
        const QByteArray jpeg = withScans(progressiveJpeg({5792, 5792}), 50);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(images::decoded(jpeg, std::chrono::milliseconds(50)).isNull());
        QVERIFY2(timer.elapsed() < 1500, qPrintable(QString::number(timer.elapsed())));
    }

    void largeJpegsAreScaledDown()
    {
        const QByteArray jpeg = encodedImage(solidImage({8000, 5000}, Qt::red), "jpeg");
        const QImage image = images::decoded(jpeg);
        QVERIFY(!image.isNull());
        QVERIFY(qint64(image.width()) * image.height() <= images::maximumPixels);
        QCOMPARE(image.size(), QSize(4000, 2500));
        QCOMPARE(images::decodedThumbnail(jpeg, {50, 50}).size(), QSize(80, 50));
    }
};

QTEST_GUILESS_MAIN(DecodingTest)
#include "tst_decoding.moc"
