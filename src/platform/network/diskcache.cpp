// SPDX-License-Identifier: MIT
#include "platform/network/diskcache.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>

namespace tolvane {

namespace {

// QNetworkDiskCache also reads a truncated or modified file; the digest detects that.
constexpr auto digestAttribute = QNetworkRequest::User;

QByteArray digestOf(const QByteArray &body)
{
    return QCryptographicHash::hash(body, QCryptographicHash::Sha1);
}

QNetworkCacheMetaData metaDataOf(const QUrl &url, const UrlResponse &response)
{
    QNetworkCacheMetaData metaData;
    metaData.setUrl(url);
    metaData.setRawHeaders(response.headers);
    metaData.setAttributes({{QNetworkRequest::HttpStatusCodeAttribute, response.status},
                            {digestAttribute, digestOf(response.body)}});
    return metaData;
}

/// Creates a folder that only its owner can read, whatever the permissions of its files.
bool makePrivateFolder(const QString &path)
{
    constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    return QDir().mkpath(path) && QFile::setPermissions(path, ownerOnly);
}

} // namespace

DiskCache::DiskCache(const QString &folder, qint64 capacity)
{
    if (folder.isEmpty() || !makePrivateFolder(folder))
        return;
    m_cache.setCacheDirectory(folder);
    m_cache.setMaximumCacheSize(capacity);
}

std::optional<UrlResponse> DiskCache::read(const QUrl &url, std::chrono::milliseconds timeout,
                                           qint64 maximumSize)
{
    const std::unique_lock lock(m_mutex, timeout);
    if (!lock)
        return std::nullopt;
    const QNetworkCacheMetaData metaData = m_cache.metaData(url);
    if (!metaData.isValid())
        return std::nullopt;
    const std::unique_ptr<QIODevice> device(m_cache.data(url));
    if (device && device->size() > maximumSize)
        return std::nullopt;
    const auto attributes = metaData.attributes();
    UrlResponse response = {.status =
                                attributes.value(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                            .headers = metaData.rawHeaders(),
                            .body = device ? device->readAll() : QByteArray()};
    if (digestOf(response.body) != attributes.value(digestAttribute).toByteArray()) {
        m_cache.remove(url);
        return std::nullopt;
    }
    return response;
}

void DiskCache::write(const QUrl &url, const UrlResponse &response)
{
    if (m_cache.cacheDirectory().isEmpty() || response.body.size() > m_cache.maximumCacheSize())
        return;
    const QNetworkCacheMetaData metaData = metaDataOf(url, response);
    const std::scoped_lock lock(m_mutex);
    QIODevice *device = m_cache.prepare(metaData);
    if (!device)
        return;
    if (device->write(response.body) == response.body.size())
        m_cache.insert(device);
    else
        m_cache.remove(url);
}

void DiskCache::remove(const QUrl &url)
{
    const std::scoped_lock lock(m_mutex);
    m_cache.remove(url);
}

} // namespace tolvane
