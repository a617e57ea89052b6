// SPDX-License-Identifier: MIT
#include "benchmarks/support/photo.h"
#include "ui/images/decoding.h"
#include "ui/images/imagecache.h"

#include <QtGui/QImageReader>

#include <benchmark/benchmark.h>

namespace tolvane::bench {

namespace {

// A cell of three attachments at a device pixel ratio of 3.
constexpr QSize target(414, 414);
constexpr QSize coveringTarget(552, 414);

const QByteArray &twelveMegapixels()
{
    static const QByteArray bytes = photo({4000, 3000});
    return bytes;
}

void pictureInMemory(benchmark::State &state)
{
    const QString key =
        ImageCache::key(QUrl(QStringLiteral("https://cdn.example/photos/1234.jpg")));
    ImageCache &cache = ImageCache::shared();
    for (int i = 0; i < 90; ++i)
        cache.insert(key + QString::number(i), QImage(10, 10, QImage::Format_RGB32));
    cache.insert(key, QImage(1000, 1000, QImage::Format_RGB32));
    for (auto _ : state)
        benchmark::DoNotOptimize(cache.image(key));
}
BENCHMARK(pictureInMemory);

void thumbnailOfPhoto(benchmark::State &state)
{
    for (auto _ : state) {
        const QByteArray &bytes = twelveMegapixels();
        if (images::isCheapToDecode(bytes) ||
            images::decodedThumbnail(bytes, target).size() != coveringTarget)
            state.SkipWithError("the thumbnail has another size");
    }
}
BENCHMARK(thumbnailOfPhoto)->Unit(benchmark::kMillisecond);

void scaledByReader(benchmark::State &state)
{
    for (auto _ : state) {
        QBuffer buffer;
        buffer.setData(twelveMegapixels());
        QImageReader reader(&buffer);
        reader.setAutoTransform(true);
        reader.setScaledSize(coveringTarget);
        benchmark::DoNotOptimize(reader.read());
    }
}
BENCHMARK(scaledByReader)->Unit(benchmark::kMillisecond);

void decodedThenScaled(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(images::thumbnail(images::decoded(twelveMegapixels()), target));
}
BENCHMARK(decodedThenScaled)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tolvane::bench
