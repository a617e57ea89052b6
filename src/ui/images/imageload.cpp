// SPDX-License-Identifier: MIT
#include "ui/images/imageload.h"

#include "backend/endpoint.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "ui/images/decoding.h"
#include "ui/images/imagecache.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QPromise>

namespace tolvane {

namespace {

// Photos are smaller; a longer response fails.
constexpr qsizetype maximumDownload = 33'554'432;

// A message may contain the URL of any host. Only the time bounds the head of a response.
constexpr std::chrono::seconds headTimeout(10);

// Pictures that take longer are decoded on the workers, and do not show in the first frame.
constexpr std::chrono::milliseconds firstFrameLimit(50);

UrlRequest requestFor(const QUrl &url)
{
    UrlRequest request;
    request.url = url;
    request.isAnonymous = true;
    request.backend = QUrl(Endpoint::current().baseUrl);
    request.headTimeout = headTimeout;
    request.maximumBodySize = maximumDownload;
    return request;
}

/// Rethrows the future's exception, and throws if it was cancelled.
UrlResponse resultOf(QFuture<UrlResponse> response)
{
    response.waitForFinished();
    if (response.resultCount() == 0)
        throw CancellationError();
    return response.result();
}

/// URLs come from the backend, and must not make the library read local files.
bool isLoadable(const QUrl &url)
{
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

} // namespace

/// Decodes pictures from bytes and scales them. Copied to the workers.
class ImageLoad::DecodePlan
{
public:
    /// @param target of the thumbnail, in pixels; invalid for the whole picture
    explicit DecodePlan(const QSize &target)
        : m_target(target)
    {
    }

    Pictures fromBytes(const QByteArray &bytes) const
    {
        // At full size, a photo would take many times as long and evict the other pictures from
        // the cache.
        if (m_target.isValid() && !images::isCheapToDecode(bytes))
            return {.whole = {}, .shown = images::decodedThumbnail(bytes, m_target)};
        return fromWhole(images::decoded(bytes));
    }

    Pictures fromWhole(const QImage &whole) const
    {
        return {.whole = whole,
                .shown = m_target.isValid() ? images::thumbnail(whole, m_target) : whole};
    }

    /// From the response cache, else from the network; the future holds the error if that fails.
    /// The main thread wakes up only once for each picture.
    QFuture<Pictures> fetch(const UrlRequest &request) const
    {
        auto promise = std::make_shared<QPromise<Pictures>>();
        promise->start();
        platform().pictureWorkers->post([plan = *this, request, promise] {
            Pictures cached = plan.fromCache(request);
            if (cached.shown.isNull())
                plan.download(request, promise);
            else
                setPromiseFrom(*promise, [&] { return cached; });
        });
        return promise->future();
    }

private:
    Pictures fromCache(const UrlRequest &request) const
    {
        const auto cached = ImageCache::shared().responses().cachedResponse(request);
        return cached ? fromStored(request, cached->body) : Pictures();
    }

    void download(const UrlRequest &request,
                  const std::shared_ptr<QPromise<Pictures>> &promise) const
    {
        const auto read = [plan = *this, request, promise](QFuture<UrlResponse> response) {
            platform().pictureWorkers->post([=] {
                setPromiseFrom(*promise,
                               [&] { return plan.fromResponse(request, resultOf(response)); });
            });
        };
        platform().urlSession->data(request).then(QtFuture::Launch::Sync, read);
    }

    /// Every response is stored, before its content is examined.
    Pictures fromResponse(const UrlRequest &request, const UrlResponse &response) const
    {
        ImageCache::shared().responses().store(response, request);
        return fromStored(request, response.body);
    }

    /// Removes a response that takes too long to decode: it would take as long at each start.
    Pictures fromStored(const UrlRequest &request, const QByteArray &body) const
    {
        const QDeadlineTimer limit(images::maximumDecodingTime);
        Pictures pictures = fromBytes(body);
        if (limit.hasExpired())
            ImageCache::shared().responses().remove(request);
        return pictures;
    }

    const QSize m_target;
};

ImageLoad::ImageLoad(const QUrl &url, std::optional<QSizeF> thumbnailSize)
    : m_request(requestFor(url))
    , m_key(ImageCache::key(url))
    , m_thumbnailSize(thumbnailSize)
    , m_isLoadable(tolvane::isLoadable(url))
    , m_hasFailed(!m_isLoadable)
{
}

void ImageLoad::loadFromCaches()
{
    if (!m_isLoadable || m_thumbnailSize || !m_image.isNull())
        return;
    ImageCache &cache = ImageCache::shared();
    QImage image = cache.image(m_key);
    if (image.isNull()) {
        const auto cached = cache.responses().cachedResponse(m_request, UrlCache::Lookup::quick);
        if (!cached || !images::isCheapToDecode(cached->body))
            return;
        image = images::decoded(cached->body, firstFrameLimit);
        if (image.isNull())
            return;
        cache.insert(m_key, image);
    }
    m_image = image;
    Q_EMIT changed();
}

void ImageLoad::start(qreal scale)
{
    if (!m_isLoadable || m_isLoading || !m_image.isNull())
        return;
    detach(load(m_thumbnailSize ? (*m_thumbnailSize * scale).toSize() : QSize()));
}

void ImageLoad::retry(qreal scale)
{
    if (!m_hasFailed)
        return;
    m_isLoading = false;
    start(scale);
}

QCoro::Task<> ImageLoad::load(QSize target)
{
    const auto self = shared_from_this();
    const DecodePlan plan(target);
    m_hasFailed = false;
    setLoading(true);

    const QImage cached = ImageCache::shared().image(m_key);
    if (!cached.isNull()) {
        QFuture<Pictures> scaling =
            platform().pictureWorkers->run([plan, cached] { return plan.fromWhole(cached); });
        const Pictures pictures = co_await awaitFuture(scaling);
        finish(pictures.shown);
        co_return;
    }

    Pictures pictures;
    try {
        QFuture<Pictures> fetching = plan.fetch(m_request);
        pictures = co_await awaitFuture(fetching);
    } catch (...) {
        // start() tries again when the view appears the next time.
        m_hasFailed = true;
        setLoading(false);
        co_return;
    }
    if (pictures.shown.isNull()) {
        m_hasFailed = true;
        Q_EMIT changed();
        co_return;
    }
    if (!pictures.whole.isNull())
        ImageCache::shared().insert(m_key, pictures.whole);
    finish(pictures.shown);
}

void ImageLoad::setLoading(bool isLoading)
{
    m_isLoading = isLoading;
    Q_EMIT changed();
}

void ImageLoad::finish(const QImage &image)
{
    m_image = image;
    m_isLoading = false;
    Q_EMIT changed();
}

} // namespace tolvane
