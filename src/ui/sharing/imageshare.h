// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/sharing/imagefile.h"
#include "ui/sharing/loadedimage.h"

#include <QCoroTask>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

#include <functional>

class QMimeData;

namespace tolvane {

/// Saves, copies and drags a picture as a JPEG file. The file is encoded once, on the workers, as
/// soon as the picture is loaded. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ImageShare : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Provides the picture once it is loaded.
    Q_PROPERTY(tolvane::LoadedImage *source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(QUrl url READ url NOTIFY sourceChanged)
    /// Whether there is a file to share; stays false for a picture that cannot be encoded.
    Q_PROPERTY(bool isReady READ isReady NOTIFY fileChanged)
    Q_PROPERTY(QString filename READ filename NOTIFY fileChanged)
    /// The path that a save dialog suggests.
    Q_PROPERTY(QUrl suggestedUrl READ suggestedUrl NOTIFY fileChanged)

public:
    using QObject::QObject;

    LoadedImage *source() const { return m_source; }
    void setSource(LoadedImage *source);
    QUrl url() const { return m_source ? m_source->url() : QUrl(); }
    /// A null image means that there is no picture yet. The same image again has no effect.
    void setImage(const QImage &image);
    bool isReady() const { return !m_file.data.isEmpty(); }
    QString filename() const { return m_file.filename; }
    QUrl suggestedUrl() const;
    const ImageFile &file() const { return m_file; }

    /// Until there is a file, this and the functions below have no effect. Saving emits saved() or
    /// failed().
    /// @param target the URL of a local file
    Q_INVOKABLE void save(const QUrl &target);
    /// Saves to the customer's folder for pictures, under an unused name.
    Q_INVOKABLE void saveToPictures();
    /// Copies to the clipboard, as a picture and as the file's bytes.
    Q_INVOKABLE void copy();
    /// Writes the file to a temporary folder on the workers. To be called some time before
    /// startDrag().
    Q_INVOKABLE void prepareDrag();
    /// Starts to drag the file out of the application; the pointer must be pressed over the item.
    Q_INVOKABLE void startDrag(QQuickItem *item);

    /// The shared data: the picture, the file's bytes, and its path once prepareDrag() is finished.
    QMimeData *makeMimeData() const;

Q_SIGNALS:
    void sourceChanged();
    void fileChanged();
    /// @param path with the separators of this system
    void saved(const QString &path);
    void failed(const QString &reason);
    void copied();

private:
    static QCoro::Task<> encode(QPointer<ImageShare> self, QImage image);
    static QCoro::Task<> write(QPointer<ImageShare> self, std::function<QString()> findPath);
    static QCoro::Task<> writeForDrag(QPointer<ImageShare> self);
    void drag(QQuickItem &item);

    QPointer<LoadedImage> m_source;
    QImage m_image;
    ImageFile m_file;
    /// The path of the file for dragging, and the pixmap of the drag; empty until it is written.
    QString m_dragPath;
    QImage m_dragImage;
};

} // namespace tolvane
