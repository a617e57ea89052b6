// SPDX-License-Identifier: MIT
#include "ui/sharing/loadedimage.h"

#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "ui/images/decoding.h"
#include "ui/images/imagecache.h"

#include <utility>

namespace tolvane {

namespace {

/// The time that the view has for loading the picture.
constexpr std::chrono::milliseconds retryDelay(500);

QImage cachedImage(const QUrl &url)
{
    ImageCache &cache = ImageCache::shared();
    UrlRequest request;
    request.url = url;
    request.isAnonymous = true;
    const auto response = cache.responses().cachedResponse(request);
    if (!response)
        return {};
    // The viewer has usually decoded the picture already.
    const QImage shown = cache.image(ImageCache::key(url));
    return shown.isNull() ? images::decoded(response->body) : shown;
}

QFuture<QImage> findCachedImage(const QUrl &url)
{
    return platform().pictureWorkers->run([url] { return cachedImage(url); });
}

} // namespace

LoadedImage::~LoadedImage()
{
    m_stop.request_stop();
}

void LoadedImage::setUrl(const QUrl &url)
{
    if (m_url == url)
        return;
    m_url = url;
    Q_EMIT urlChanged();
    if (m_isComplete)
        start();
}

void LoadedImage::componentComplete()
{
    m_isComplete = true;
    start();
}

void LoadedImage::start()
{
    m_stop.request_stop();
    m_stop = {};
    if (!std::exchange(m_image, {}).isNull())
        Q_EMIT imageChanged();
    if (!m_url.isEmpty())
        detach(load(this, m_url, m_stop.get_token()));
}

QCoro::Task<> LoadedImage::load(QPointer<LoadedImage> self, QUrl url, std::stop_token stop)
{
    QFuture<QImage> firstLookup = findCachedImage(url);
    QImage image = co_await awaitFuture(firstLookup);
    if (image.isNull()) {
        try {
            QFuture<void> wait = platform().clock->sleep(retryDelay, stop);
            co_await awaitFuture(wait);
        } catch (const CancellationError &) {
            co_return;
        }
        QFuture<QImage> secondLookup = findCachedImage(url);
        image = co_await awaitFuture(secondLookup);
    }
    if (!self || image.isNull() || stop.stop_requested())
        co_return;
    // If the view has decoded the picture in the meantime, both share one copy of it.
    const QImage shown = ImageCache::shared().image(ImageCache::key(url));
    self->m_image = shown.isNull() ? image : shown;
    Q_EMIT self->imageChanged();
}

} // namespace tolvane
