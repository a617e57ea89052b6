// SPDX-License-Identifier: MIT
#pragma once

#include "base/lrucache.h"
#include "base/privateexport.h"
#include "platform/network/urlcache.h"

#include <QtGui/QImage>

#include <memory>
#include <mutex>

namespace tolvane {

/// Caches pictures: decoded in memory, and as received bytes in memory and on disk. One for the
/// process, shared by all views. Thread-safe.
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

    /// The responses that contained the pictures. This cache is the library's own: the host's is
    /// not used, and the backend's responses to API requests never enter this one.
    UrlCache &responses() { return *m_responses; }

private:
    std::mutex m_mutex;
    LruCache<QString, QImage> m_images;
    const std::unique_ptr<UrlCache> m_responses;
};

} // namespace tolvane
