// SPDX-License-Identifier: MIT
#include "platform/network/urlcache.h"

#include "base/lrucache.h"
#include "platform/network/diskcache.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace tolvane {

namespace {

// The limit of a quick lookup: reading and checking this much takes about a millisecond.
constexpr qint64 quickSize = 524'288;
constexpr std::chrono::milliseconds quickTimeout{2};
constexpr std::chrono::milliseconds thoroughTimeout = std::chrono::minutes(1);

QString absoluteFolder(const QString &path)
{
    if (QDir::isAbsolutePath(path))
        return path;
    const QString caches = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    return caches.isEmpty() ? QString() : QDir(caches).filePath(path);
}

class TwoLevelCache final : public UrlCache
{
public:
    explicit TwoLevelCache(const Settings &settings)
        : m_memory({.cost = settings.memoryCapacity})
        , m_disk(absoluteFolder(settings.diskPath), settings.diskCapacity)
    {
    }

    std::optional<UrlResponse> cachedResponse(const UrlRequest &request, Lookup lookup) override
    {
        if (auto response = memoryResponse(request.url))
            return response;
        const bool isQuick = lookup == Lookup::quick;
        auto read = m_disk.read(request.url, isQuick ? quickTimeout : thoroughTimeout,
                                isQuick ? quickSize : std::numeric_limits<qint64>::max());
        if (read)
            storeInMemory(request.url, *read);
        return read;
    }

    void store(const UrlResponse &response, const UrlRequest &request) override
    {
        storeInMemory(request.url, response);
        m_disk.write(request.url, response);
    }

    void remove(const UrlRequest &request) override
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_memory.remove(request.url);
        }
        m_disk.remove(request.url);
    }

private:
    std::optional<UrlResponse> memoryResponse(const QUrl &url)
    {
        const std::scoped_lock lock(m_mutex);
        const UrlResponse *response = m_memory.object(url);
        return response ? std::optional(*response) : std::nullopt;
    }

    void storeInMemory(const QUrl &url, const UrlResponse &response)
    {
        const std::scoped_lock lock(m_mutex);
        m_memory.insert(url, response, response.size());
    }

    std::mutex m_mutex;
    LruCache<QUrl, UrlResponse> m_memory;
    DiskCache m_disk;
};

} // namespace

std::unique_ptr<UrlCache> makeUrlCache(const UrlCache::Settings &settings)
{
    return std::make_unique<TwoLevelCache>(settings);
}

} // namespace tolvane
