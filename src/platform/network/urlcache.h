// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/network/urlsession.h"

#include <memory>
#include <optional>

namespace tolvane {

/// Stores responses in memory and on disk, by the URL of their request, whatever their status and
/// cache headers. Safe from any thread.
///
/// It is private to the library and does not replace or use a host's network cache. Several
/// processes may share the folder on disk.
class UrlCache
{
public:
    struct Settings
    {
        /// In bytes, of headers and bodies.
        qint64 memoryCapacity = 0;
        /// In bytes that files take on disk.
        qint64 diskCapacity = 0;
        /// A folder, below the application's cache folder unless it is absolute.
        QString diskPath;
    };

    enum class Lookup {
        /// Reads a cached response of any size.
        thorough,
        /// For the main thread: reads from memory, or a small file unless the disk cache is busy.
        quick,
    };

    UrlCache() = default;
    UrlCache(const UrlCache &) = delete;
    UrlCache &operator=(const UrlCache &) = delete;
    virtual ~UrlCache() = default;

    virtual std::optional<UrlResponse> cachedResponse(const UrlRequest &request,
                                                      Lookup lookup = Lookup::thorough) = 0;

    /// Writes to the disk before it returns. A response that cannot be written stays in memory
    /// only.
    virtual void store(const UrlResponse &response, const UrlRequest &request) = 0;

    virtual void remove(const UrlRequest &request) = 0;
};

/// The cache on QNetworkDiskCache.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<UrlCache> makeUrlCache(const UrlCache::Settings &settings);

} // namespace tolvane
