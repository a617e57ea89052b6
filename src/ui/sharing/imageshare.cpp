// SPDX-License-Identifier: MIT
#include "ui/sharing/imageshare.h"

#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "platform/system/files.h"
#include "ui/dialogs/picturesfolder.h"

#include <QtCore/QDir>
#include <QtCore/QMimeData>
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtGui/QDrag>
#include <QtGui/QGuiApplication>
#include <QtGui/QPixmap>

#include <functional>

namespace tolvane {

namespace {

/// The maximum size of a drag's pixmap.
constexpr QSize maxDragImageSize(160, 160);

/// A temporary folder, removed when the application exits: the target of a drop may read the file
/// long after the drag. Empty if it cannot be created.
QString dragFolder()
{
    struct Folder final : QObject
    {
        using QObject::QObject;
        QTemporaryDir directory;
    };
    static QPointer<Folder> folder;
    if (!folder)
        folder = new Folder(qGuiApp);
    return folder->directory.isValid() ? folder->directory.path() : QString();
}

} // namespace

void ImageShare::setSource(LoadedImage *source)
{
    if (m_source == source)
        return;
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    const auto update = [this, source] { setImage(source ? source->image() : QImage()); };
    if (source) {
        connect(source, &LoadedImage::imageChanged, this, update);
        connect(source, &LoadedImage::urlChanged, this, &ImageShare::sourceChanged);
    }
    update();
    Q_EMIT sourceChanged();
}

void ImageShare::setImage(const QImage &image)
{
    if (m_image.cacheKey() == image.cacheKey())
        return;
    m_image = image;
    m_file = {};
    m_dragPath.clear();
    m_dragImage = {};
    Q_EMIT fileChanged();
    if (!image.isNull())
        detach(encode(this, image));
}

QCoro::Task<> ImageShare::encode(QPointer<ImageShare> self, QImage image)
{
    QFuture<QByteArray> encoding = platform().pictureWorkers->run([image] { return jpeg(image); });
    const QByteArray data = co_await awaitFuture(encoding);
    if (!self || data.isEmpty() || self->m_image.cacheKey() != image.cacheKey())
        co_return;
    self->m_file = {.data = data, .filename = ImageFile::filenameAt(platform().clock->now())};
    Q_EMIT self->fileChanged();
}

QUrl ImageShare::suggestedUrl() const
{
    return QUrl::fromLocalFile(QDir(picturesFolder()).filePath(m_file.filename));
}

void ImageShare::save(const QUrl &target)
{
    detach(write(this, [path = target.toLocalFile()] { return path; }));
}

void ImageShare::saveToPictures()
{
    detach(write(this,
                 [name = m_file.filename] { return files::unusedPath(picturesFolder(), name); }));
}

QCoro::Task<> ImageShare::write(QPointer<ImageShare> self, std::function<QString()> findPath)
{
    if (!self->isReady())
        co_return;
    QString reason;
    try {
        QFuture<QString> writing = platform().workers->run([data = self->m_file.data, findPath] {
            const QString path = findPath();
            files::write(path, data);
            return path;
        });
        const QString path = co_await awaitFuture(writing);
        if (self)
            Q_EMIT self->saved(QDir::toNativeSeparators(path));
        co_return;
    } catch (const Error &error) {
        reason = error.localizedDescription();
    }
    if (self)
        Q_EMIT self->failed(reason);
}

void ImageShare::copy()
{
    if (!isReady())
        return;
    QGuiApplication::clipboard()->setMimeData(makeMimeData());
    Q_EMIT copied();
}

void ImageShare::prepareDrag()
{
    if (isReady() && m_dragPath.isEmpty())
        detach(writeForDrag(this));
}

QCoro::Task<> ImageShare::writeForDrag(QPointer<ImageShare> self)
{
    const QImage image = self->m_image;
    const QString folder = dragFolder();
    const QString path = QDir(folder).filePath(self->m_file.filename);
    QImage picture;
    try {
        QFuture<QImage> writing = platform().workers->run([folder, path, image,
                                                           data = self->m_file.data] {
            if (!folder.isEmpty())
                files::write(path, data);
            return image.scaled(maxDragImageSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        });
        picture = co_await awaitFuture(writing);
    } catch (const Error &) {
        co_return; // The drag then offers the bytes only.
    }
    if (!self || self->m_image.cacheKey() != image.cacheKey())
        co_return;
    self->m_dragPath = folder.isEmpty() ? QString() : path;
    self->m_dragImage = picture;
}

void ImageShare::startDrag(QQuickItem *item)
{
    if (!isReady() || !item)
        return;
    // Deferred: dragging runs a nested event loop, in which both objects may be destroyed.
    const QPointer<ImageShare> self(this);
    const QPointer<QQuickItem> source(item);
    QMetaObject::invokeMethod(
        this,
        [self, source] {
            if (source)
                self->drag(*source);
        },
        Qt::QueuedConnection);
}

void ImageShare::drag(QQuickItem &item)
{
    item.ungrabMouse(); // The item will not receive the release of the button.
    auto *drag = new QDrag(&item);
    drag->setMimeData(makeMimeData());
    drag->setPixmap(QPixmap::fromImage(m_dragImage));
    drag->exec(Qt::CopyAction);
}

QMimeData *ImageShare::makeMimeData() const
{
    auto *data = new QMimeData;
    data->setImageData(m_image);
    data->setData(QStringLiteral("image/jpeg"), m_file.data);
    if (!m_dragPath.isEmpty())
        data->setUrls({QUrl::fromLocalFile(m_dragPath)});
    return data;
}

} // namespace tolvane
