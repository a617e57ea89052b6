// SPDX-License-Identifier: MIT
#pragma once

#include "platform/network/urlcache.h"

#include <QtNetwork/QNetworkDiskCache>

#include <chrono>
#include <mutex>

namespace tolvane {

/// The part of the URL cache that lies in a folder. Damaged and foreign files count as absent and
/// are removed. Safe from any thread.
class DiskCache
{
public:
    DiskCache(const QString &folder, qint64 capacity);

    /// @param patience how long to wait for other users of the disk
    /// @param maximumSize larger bodies are passed over
    std::optional<UrlResponse> read(const QUrl &url, std::chrono::milliseconds patience,
                                    qint64 maximumSize);
    void write(const QUrl &url, const UrlResponse &response);

private:
    std::timed_mutex m_mutex;
    QNetworkDiskCache m_cache;
};

} // namespace tolvane
