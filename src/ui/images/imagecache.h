// SPDX-License-Identifier: MIT
#pragma once

#include "base/lrucache.h"
#include "base/privateexport.h"
#include "platform/network/urlcache.h"

#include <QtGui/QImage>

#include <memory>
#include <mutex>

namespace tolvane {

/// Caches pictures, decoded in memory, and as received in memory and on disk. All views of the
/// process share one instance. Thread-safe.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ImageCache
{
public:
    static ImageCache &shared();

    ImageCache();

    /// The key of a URL: its absolute form. Views store it, so that lookups are cheap.
    static QString key(const QUrl &url);

    /// Null if the picture is not cached.
    QImage image(const QString &key);
    void insert(const QString &key, const QImage &image);
    /// Keeps the pictures as received bytes only.
    void removeDecoded();

    /// The responses with the pictures. The library does not use a cache of the host, and does not
    /// store responses to API requests in this one.
    UrlCache &responses() { return *m_responses; }

private:
    std::mutex m_mutex;
    LruCache<QString, QImage> m_images;
    const std::unique_ptr<UrlCache> m_responses;
};

} // namespace tolvane
