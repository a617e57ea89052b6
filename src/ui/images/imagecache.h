// SPDX-License-Identifier: MIT
#pragma once

#include "base/lrucache.h"
#include "base/privateexport.h"
#include "platform/network/urlcache.h"

#include <QtGui/QImage>

#include <memory>
#include <mutex>

namespace tolvane {

/// Where pictures are kept: decoded in memory, and as the bytes that came, in memory and on disk.
/// One for the process, shared by all views. Safe from any thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ImageCache
{
public:
    static ImageCache &shared();

    ImageCache();

    /// The key of an address: its absolute form. Views keep it, so that looking is cheap.
    static QString key(const QUrl &url);

    /// Null when it is not there.
    QImage image(const QString &key);
    void insert(const QString &key, const QImage &image);

    /// The responses that pictures came in. This is the library's own cache; the host's is left
    /// alone, and the answers of the backend never enter it.
    UrlCache &responses() { return *m_responses; }

private:
    std::mutex m_mutex;
    LruCache<QString, QImage> m_images;
    const std::unique_ptr<UrlCache> m_responses;
};

} // namespace tolvane
