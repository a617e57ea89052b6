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

/// Gives a picture away as a JPEG file, the same one each time: saved, copied, dragged. The file is
/// made as soon as there is a picture, on the workers. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ImageShare : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Where the picture comes from, once it is there.
    Q_PROPERTY(tolvane::LoadedImage *source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(QUrl url READ url NOTIFY sourceChanged)
    /// Whether there is a file to give away; stays false for a picture that cannot be encoded.
    Q_PROPERTY(bool isReady READ isReady NOTIFY fileChanged)
    Q_PROPERTY(QString filename READ filename NOTIFY fileChanged)
    /// Where it might be saved.
    Q_PROPERTY(QUrl suggestedPlace READ suggestedPlace NOTIFY fileChanged)

public:
    using QObject::QObject;

    LoadedImage *source() const { return m_source; }
    void setSource(LoadedImage *source);
    QUrl url() const { return m_source ? m_source->url() : QUrl(); }
    /// Null for none yet; the same one again changes nothing.
    void setImage(const QImage &image);
    bool isReady() const { return !m_file.data.isEmpty(); }
    QString filename() const { return m_file.filename; }
    QUrl suggestedPlace() const;
    const ImageFile &file() const { return m_file; }

    /// Each does nothing without a file. Saving ends with saved() or failed().
    /// @param place the file to write, on this machine
    Q_INVOKABLE void save(const QUrl &place);
    /// Into the customer's folder for pictures, under a name that is free there.
    Q_INVOKABLE void saveToPictures();
    /// To the clipboard, as a picture and as the file's bytes.
    Q_INVOKABLE void copy();
    /// Puts the file where it can be dragged from; to be called a little before startDrag().
    Q_INVOKABLE void prepareDrag();
    /// Lets the pointer, which is pressed over the item, drag the file out of the application.
    Q_INVOKABLE void startDrag(QQuickItem *item);

    /// What is given to others: the picture, the file's bytes, and its place once it is prepared.
    QMimeData *makeMimeData() const;

Q_SIGNALS:
    void sourceChanged();
    void fileChanged();
    /// @param place the path as people of this system write it
    void saved(const QString &place);
    void failed(const QString &reason);
    void copied();

private:
    static QCoro::Task<> encode(QPointer<ImageShare> self, QImage image);
    static QCoro::Task<> write(QPointer<ImageShare> self, std::function<QString()> place);
    static QCoro::Task<> writeForDrag(QPointer<ImageShare> self);
    void drag(QQuickItem &item);

    QPointer<LoadedImage> m_source;
    QImage m_image;
    ImageFile m_file;
    /// Where the file lies for dragging, and what hangs on the pointer; empty until it does.
    QString m_dragPath;
    QImage m_dragPicture;
};

} // namespace tolvane
