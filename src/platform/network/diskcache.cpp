// SPDX-License-Identifier: MIT
#include "platform/network/diskcache.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>

#include <map>

namespace tolvane {

namespace {

// QNetworkDiskCache also reads a truncated or modified file; the digest detects that.
constexpr auto digestAttribute = QNetworkRequest::User;

QByteArray digestOf(const QByteArray &body)
{
    return QCryptographicHash::hash(body, QCryptographicHash::Sha1);
}

/// File systems allocate blocks of this size.
qint64 sizeOnDisk(qint64 size)
{
    constexpr qint64 block = 4096;
    return (size + block - 1) / block * block;
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

/// Creates a folder that only its owner can read, since its files may be readable by others.
bool makePrivateFolder(const QString &path)
{
    constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    return QDir().mkpath(path) && QFile::setPermissions(path, ownerOnly);
}

} // namespace

void FolderCache::makeRoom(qint64 size)
{
    const qint64 needed = sizeOnDisk(size);
    if (m_used > maximumCacheSize() - needed)
        m_used = removeOldest(maximumCacheSize() / 10 * 9 - needed);
    m_used += needed;
}

/// Returns the disk space that is still in use.
qint64 FolderCache::removeOldest(qint64 limit)
{
    std::multimap<QDateTime, QFileInfo> files;
    qint64 used = 0;
    QDirIterator each(cacheDirectory(), QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QFileInfo file(each.next());
        used += sizeOnDisk(file.size());
        files.emplace(file.lastModified(), file);
    }
    for (auto oldest = files.cbegin(); oldest != files.cend() && used > limit; ++oldest) {
        if (QFile::remove(oldest->second.filePath()))
            used -= sizeOnDisk(oldest->second.size());
    }
    return used;
}

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
    // data() remembers the metadata of the file that it reads. In the reverse order another process
    // could replace the file in between. The URL must be equal to the one in the file, from which
    // QNetworkCacheMetaData has removed password and fragment.
    const QUrl stored = metaDataOf(url, {}).url();
    const std::unique_ptr<QIODevice> device(m_cache.data(stored));
    const QNetworkCacheMetaData metaData = m_cache.metaData(stored);
    if (!device || !metaData.isValid() || device->size() > maximumSize)
        return std::nullopt;
    const auto attributes = metaData.attributes();
    UrlResponse response = {.status =
                                attributes.value(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                            .headers = metaData.rawHeaders(),
                            .body = device->readAll()};
    if (digestOf(response.body) != attributes.value(digestAttribute).toByteArray()) {
        m_cache.remove(url);
        return std::nullopt;
    }
    return response;
}

void DiskCache::write(const QUrl &url, const UrlResponse &response)
{
    // An upper bound for the URL and the attributes.
    constexpr qint64 overhead = 1024;
    const qint64 size = response.size() + overhead;
    if (m_cache.cacheDirectory().isEmpty() || size > m_cache.maximumCacheSize())
        return;
    const QNetworkCacheMetaData metaData = metaDataOf(url, response);
    const std::scoped_lock lock(m_mutex);
    m_cache.makeRoom(size);
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
