// SPDX-License-Identifier: MIT
#include "ui/attachments/imagefiles.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <array>

namespace tolvane::imagefiles {

namespace {

constexpr std::array suffixes = {"png", "jpg",  "jpeg", "gif",  "webp", "bmp",
                                 "tif", "tiff", "heic", "heif", "avif"};

/// Android's picker returns content URLs, which QFile opens as they are.
QString pathOf(const QUrl &file)
{
    return file.isLocalFile() ? file.toLocalFile() : file.toString();
}

bool hasImageSuffix(const QUrl &url)
{
    const QString suffix = QFileInfo(url.fileName()).suffix().toLower();
    return std::ranges::any_of(
        suffixes, [&suffix](const char *known) { return suffix == QLatin1String(known); });
}

QByteArray bytesOf(const QUrl &url)
{
    // Reading a pipe or a device might never end.
    if (url.isLocalFile() && !QFileInfo(url.toLocalFile()).isFile())
        return {};
    QFile file(pathOf(url));
    // The head is enough to reject a large file that is not a picture.
    constexpr qint64 headSize = 16'384;
    if (!file.open(QIODevice::ReadOnly) || pictureType(file.peek(headSize)).isEmpty())
        return {};
    return file.readAll();
}

/// Replaces characters that would have to be escaped in the header of a multipart form's part.
QString sanitized(QString name)
{
    static const QRegularExpression unsafe(QStringLiteral("[\\x00-\\x1f\\x7f\"\\\\]"));
    return name.replace(unsafe, QStringLiteral("_"));
}

QString nameOf(const QString &fileName, const QByteArray &bytes)
{
    const QByteArray digest =
        QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).first(8).toHex();
    const QFileInfo info(sanitized(fileName));
    const QString suffix = info.suffix();
    const QString name = info.completeBaseName() + QLatin1Char('-') + QString::fromLatin1(digest);
    return suffix.isEmpty() ? name : name + QLatin1Char('.') + suffix;
}

} // namespace

QStringList patterns()
{
    QStringList patterns;
    for (const char *suffix : suffixes) {
        const QString pattern = QStringLiteral("*.") + QLatin1String(suffix);
        patterns << pattern << pattern.toUpper();
    }
    return patterns;
}

QList<QUrl> imageFilesIn(const QList<QUrl> &urls)
{
    QList<QUrl> files;
    for (const QUrl &url : urls) {
        if (url.isLocalFile() && hasImageSuffix(url))
            files += url;
    }
    return files;
}

QList<QUrl> filesIn(const QList<QUrl> &urls)
{
    QList<QUrl> files = urls;
    files.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    return files;
}

QString pictureType(const QByteArray &bytes)
{
    const QString type = QMimeDatabase().mimeTypeForData(bytes).name();
    return type.startsWith(QLatin1String("image/")) ? type : QString();
}

std::optional<AttachmentDto> read(const QUrl &file)
{
    const QByteArray bytes = bytesOf(file);
    const QString type = pictureType(bytes);
    if (type.isEmpty())
        return std::nullopt;
    return AttachmentDto{.name = nameOf(file.fileName(), bytes), .mimeType = type, .data = bytes};
}

} // namespace tolvane::imagefiles
