// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/network/urlsession.h"

#include <memory>
#include <optional>

namespace tolvane {

/// Keeps responses in memory and on disk, by the address of their request, whatever their status
/// and their headers say. Safe from any thread.
///
/// It is the library's own: a host's network cache is neither read nor written, nor is anything put
/// in its place. Several processes may share the folder on disk.
class UrlCache
{
public:
    struct Settings
    {
        /// In bytes, counted by the bodies.
        qint64 memoryCapacity = 0;
        qint64 diskCapacity = 0;
        /// A folder, below the application's cache folder unless it is absolute.
        QString diskPath;
    };

    enum class Look {
        /// Reads what there is, however large.
        thorough,
        /// For the thread that must not wait: what is in memory, or small and on a disk that nobody
        /// keeps busy.
        quick,
    };

    UrlCache() = default;
    UrlCache(const UrlCache &) = delete;
    UrlCache &operator=(const UrlCache &) = delete;
    virtual ~UrlCache() = default;

    virtual std::optional<UrlResponse> cachedResponse(const UrlRequest &request,
                                                      Look look = Look::thorough) = 0;

    /// Writes to the disk before it returns. What the disk does not take is kept in memory only.
    virtual void store(const UrlResponse &response, const UrlRequest &request) = 0;
};

/// The cache on QNetworkDiskCache.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<UrlCache> makeUrlCache(const UrlCache::Settings &settings);

} // namespace tolvane
