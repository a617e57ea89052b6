// SPDX-License-Identifier: MIT
#include "allocations.h"

#include "countedmalloc.h"
#include "figures.h"
#include "ui/images/imagecache.h"

namespace tolvane::bench {

void measureAllocations(Figures &figures)
{
    const QString key = QStringLiteral("https://cdn.example/photo.jpg");
    ImageCache::shared().insert(key, QImage(10, 10, QImage::Format_RGB32));
    const int before = allocations();
    for (int i = 0; i < 1000; ++i)
        benchmark::DoNotOptimize(ImageCache::shared().image(key));
    figures.record("allocations for a picture in memory", allocations() - before);
}

} // namespace tolvane::bench
