// SPDX-License-Identifier: MIT
#include "allocations.h"

#include "figures.h"
#include "ui/images/imagecache.h"

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<int> allocationCount = 0;

} // namespace

// Takes the place of the C library's function, which every other way to allocate ends in.
extern "C" void *__libc_malloc(std::size_t size);
extern "C" __attribute__((visibility("default"))) void *malloc(std::size_t size)
{
    ++allocationCount;
    return __libc_malloc(size);
}

namespace tolvane::bench {

void measureAllocations(Figures &figures)
{
    const QString key = QStringLiteral("https://cdn.example/photo.jpg");
    ImageCache::shared().insert(key, QImage(10, 10, QImage::Format_RGB32));
    const int before = allocationCount;
    for (int i = 0; i < 1000; ++i)
        benchmark::DoNotOptimize(ImageCache::shared().image(key));
    figures.record("allocations for a picture in memory", allocationCount - before);
}

} // namespace tolvane::bench
