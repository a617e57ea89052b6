// SPDX-License-Identifier: MIT
#pragma once

#include "platform/network/urlcache.h"

#include <QtNetwork/QNetworkDiskCache>

#include <chrono>
#include <limits>
#include <mutex>

namespace tolvane {

/// A QNetworkDiskCache that limits the disk space of its files instead of the sum of their sizes:
/// thousands of small pictures would occupy many times the capacity.
class FolderCache final : public QNetworkDiskCache
{
public:
    /// Call it before writing a file: removes the oldest ones if it would not fit.
    void makeRoom(qint64 size);

protected:
    qint64 expire() override { return m_used; }

private:
    qint64 removeOldest(qint64 limit);

    /// Unknown at first. Measured again at each overflow, since other processes may use the folder.
    qint64 m_used = std::numeric_limits<qint64>::max();
};

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
    FolderCache m_cache;
};

} // namespace tolvane
