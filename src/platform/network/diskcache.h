// SPDX-License-Identifier: MIT
#pragma once

#include "platform/network/urlcache.h"

#include <QtNetwork/QNetworkDiskCache>

#include <chrono>
#include <mutex>

namespace tolvane {

/// The URL cache on disk. Damaged and foreign files are treated as absent and removed. Safe from
/// any thread.
class DiskCache
{
public:
    DiskCache(const QString &folder, qint64 capacity);

    /// @param timeout how long to wait for other users of the disk cache
    /// @param maximumSize in bytes; larger bodies are not read
    std::optional<UrlResponse> read(const QUrl &url, std::chrono::milliseconds timeout,
                                    qint64 maximumSize);
    void write(const QUrl &url, const UrlResponse &response);
    void remove(const QUrl &url);

private:
    std::timed_mutex m_mutex;
    QNetworkDiskCache m_cache;
};

} // namespace tolvane
