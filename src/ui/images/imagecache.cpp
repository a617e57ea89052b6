// SPDX-License-Identifier: MIT
#include "ui/images/imagecache.h"

#include "base/sharedinstance.h"
#include "platform/platform.h"

namespace tolvane {

namespace {

constexpr qint64 mebibyte = 1'048'576;

} // namespace

ImageCache &ImageCache::shared()
{
    return *sharedInstance<ImageCache>();
}

ImageCache::ImageCache()
    : m_images({.count = 100, .cost = 50 * mebibyte})
    , m_responses(platform().makeUrlCache({.memoryCapacity = 50 * mebibyte,
                                           .diskCapacity = 200 * mebibyte,
                                           .diskPath = QStringLiteral("tolvane_image_cache")}))
{
}

QString ImageCache::key(const QUrl &url)
{
    return url.toString(QUrl::FullyEncoded);
}

QImage ImageCache::image(const QString &key)
{
    const std::scoped_lock lock(m_mutex);
    const QImage *image = m_images.object(key);
    return image ? *image : QImage();
}

void ImageCache::insert(const QString &key, const QImage &image)
{
    const std::scoped_lock lock(m_mutex);
    m_images.insert(key, image, image.sizeInBytes());
}

void ImageCache::removeDecoded()
{
    const std::scoped_lock lock(m_mutex);
    m_images.clear();
}

} // namespace tolvane
