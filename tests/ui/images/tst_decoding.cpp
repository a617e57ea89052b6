// SPDX-License-Identifier: MIT
#include "testing/ui/samples.h"
#include "ui/images/decoding.h"

#include <QtCore/QBuffer>
#include <QtCore/QtEndian>
#include <QtGui/QColorSpace>
#include <QtGui/QImageWriter>
#include <QtTest/QTest>

#include <ctime>

using namespace Qt::StringLiterals;
using namespace tolvane::test;
namespace images = tolvane::images;

namespace {

/// In milliseconds. Unlike the time on the clock, it does not depend on other programs.
double processorTime()
{
    return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC;
}

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

/// A JPEG with many copies of a segment after its first two bytes.
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

/// A JPEG with many copies of its last scan.
QByteArray withScans(const QByteArray &jpeg, int count)
{
    const qsizetype last = jpeg.lastIndexOf("\xff\xda");
    return jpeg.first(last) + jpeg.sliced(last).chopped(2).repeated(count) + "\xff\xd9";
}

/// A JPEG that declares another width and height in its frame header.
QByteArray withDeclaredSide(QByteArray jpeg, quint16 side)
{
    const qsizetype frame = jpeg.indexOf("\xff\xc0");
    qToBigEndian(side, jpeg.data() + frame + 5);
    qToBigEndian(side, jpeg.data() + frame + 7);
    return jpeg;
}

/// A PNG with many copies of a short compressed text that inflates to 8 MB.
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

/// A GIF with many copies of its frames.
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
        const QByteArray png = encodedImage(solidImage({3, 2}, red), "png");
        const QByteArray webp = encodedImage(solidImage({9, 9}, red), "webp");
        const QByteArray gif = dataFile("animated.gif");
        const QImage clear = solidImage({5, 5}, QColor(0, 128, 0, 128), QImage::Format_ARGB32);
        const QImage deep = solidImage({7, 7}, red, QImage::Format_RGBA64);
        const auto decoded = [](const char *name, const QByteArray &bytes, const QSize &size,
                                const QColor &middle = {200, 50, 50}) {
            QTest::newRow(name) << bytes << size << middle;
        };
        decoded("png", png, {3, 2});
        decoded("transparent png", encodedImage(clear, "png"), {5, 5}, {0, 128, 0, 128});
        decoded("one pixel", encodedImage(solidImage({1, 1}, red), "png"), {1, 1});
        decoded("16 bits a channel", encodedImage(deep, "png"), {7, 7});
        decoded("jpeg", jpeg, {60, 40});
        decoded("CMYK jpeg", dataFile("cmyk.jpg"), {24, 16});
        decoded("rotated jpeg", withOrientation(jpeg, 6), {40, 60});
        decoded("truncated jpeg", jpeg.first(jpeg.size() - 20), {60, 40});
        decoded("progressive", progressiveJpeg({800, 600}), {800, 600}, {200, 30, 30});
        decoded("first frame of a gif", gif, {8, 6}, {0, 255, 0});
        decoded("webp", webp, {9, 9});
        decoded("wide gamut", wideGamutPng({200, 100, 100}), {4, 4}, {215, 94, 96});
        decoded("100,000 comments", withSegments(jpeg, 0xFE, "x", 100'000), {60, 40});
        decoded("25 MB of profiles",
                withSegments(jpeg, 0xE2, "ICC_PROFILE" + QByteArray(65'000, 'x'), 400), {60, 40});
        decoded("200 texts of 8 MB", withTexts(png, 200), {3, 2});
        decoded("100,000 frames", withFrames(gif, 100'000), {8, 6}, {0, 255, 0});

        const std::pair<const char *, QByteArray> rejected[] = {
            {"empty", {}},
            {"HTML", "<!doctype html><p>404"},
            {"svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"},
            {"bmp", encodedImage(solidImage({3, 2}, red), "bmp")},
            {"png header only", png.first(20)},
            {"jpeg header, then garbage", "\xff\xd8\xff" + QByteArray(500, '\x5a')},
            {"a PNG as a JPEG", "\xff\xd8\xff" + png},
            {"a JPEG as a GIF", "GIF89a" + jpeg},
            {"a PNG of 65,000 x 65,000", QByteArray::fromHex("89504e470d0a1a0a0000000d49484452000"
                                                             "0fde80000fde80806000000a257d90a") +
                                             png.sliced(33)},
            {"a GIF of 65,000 x 65,000", QByteArray(gif).replace(6, 4, "\xe8\xfd\xe8\xfd")},
            {"a WebP of 65,000 x 65,000", QByteArray::fromHex("52494646ffffff005745425056503858"
                                                              "0a00000000000000e7fd00e7fd00") +
                                              webp.sliced(12)},
            {"100 megapixels in a few KB", hugePng(10'000)},
            {"40,000 scans", withScans(progressiveJpeg({4000, 3000}), 40'000)},
            {"a header of 400 megapixels", withDeclaredSide(jpeg, 20'000)}};
        for (const auto &[name, bytes] : rejected)
            QTest::newRow(name) << bytes << QSize() << QColor();
    }

    void picturesAreDecodedAndOthersRejected()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QSize, size);
        QFETCH(const QColor, middle);
        const double start = processorTime();
        const QList<QImage> results = {images::decoded(bytes),
                                       images::decodedThumbnail(bytes, {1000, 1000})};
        const double time = processorTime() - start;
        QVERIFY2(time < 3000, qPrintable(QString::number(time)));
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
        const double start = processorTime();
        QVERIFY(images::decoded(jpeg, std::chrono::milliseconds(50)).isNull());
        const double time = processorTime() - start;
        QVERIFY2(time < 1500, qPrintable(QString::number(time)));
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
