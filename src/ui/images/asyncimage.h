// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/images/imageload.h"

#include <QtCore/QPointer>
#include <QtQml/QQmlComponent>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

#include <memory>
#include <optional>

namespace tolvane {

/// Loads a picture. Shows a placeholder while it loads, and then an item with the picture.
///
/// Loading starts when the item appears, that is, when it is complete, visible and in a window. The
/// shown item has the size of this one, and determines its implicit size.
class TOLVANE_VIEWS_AUTOTEST_EXPORT AsyncImage : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS
    /// If empty, or not an http or https URL, the placeholder stays.
    Q_PROPERTY(QUrl url READ url WRITE setUrl NOTIFY urlChanged)
    /// Created with its property `image` set to the picture.
    Q_PROPERTY(QQmlComponent *content READ content WRITE setContent NOTIFY contentChanged)
    /// By default a progress indicator, or a broken picture if the load has failed.
    Q_PROPERTY(
        QQmlComponent *placeholder READ placeholder WRITE setPlaceholder NOTIFY placeholderChanged)
    /// Null until the picture is loaded.
    Q_PROPERTY(QImage image READ image NOTIFY loadChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY loadChanged)
    Q_PROPERTY(bool hasFailed READ hasFailed NOTIFY loadChanged)
    /// The shown item: content or placeholder.
    Q_PROPERTY(QQuickItem *item READ item NOTIFY itemChanged)

public:
    QUrl url() const { return m_url; }
    /// Starts a new load; a running load of the previous URL only fills the caches.
    void setUrl(const QUrl &url);
    QQmlComponent *content() const { return m_content; }
    void setContent(QQmlComponent *content);
    QQmlComponent *placeholder() const { return m_placeholder; }
    void setPlaceholder(QQmlComponent *placeholder);
    QImage image() const { return m_load->image(); }
    bool isLoading() const { return m_load->isLoading(); }
    bool hasFailed() const { return m_load->hasFailed(); }
    /// Tries to load the picture again after a failure.
    Q_INVOKABLE void retry();
    QQuickItem *item() const { return m_item; }

Q_SIGNALS:
    void urlChanged();
    void contentChanged();
    void placeholderChanged();
    void loadChanged();
    void itemChanged();

protected:
    /// @param thumbnailSize in pixels; without it, the picture is loaded at full size
    explicit AsyncImage(QQuickItem *parent, const std::optional<QSizeF> &thumbnailSize = {});

    const std::optional<QSizeF> &requestedSize() const { return m_thumbnailSize; }
    void setRequestedSize(const QSizeF &size);

    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void restartLoad();
    void updatePresence(const QQuickWindow *window);
    void appear();
    void updateShownItem();
    /// Shows the content if there is a picture, else the placeholder.
    void show(const QImage &picture);
    QQuickItem *createItem(QQmlComponent &component, const QVariantMap &properties);
    QQmlComponent &defaultPlaceholder();
    void replaceItem(QQuickItem *item);
    void syncGeometry();

    QUrl m_url;
    std::optional<QSizeF> m_thumbnailSize;
    std::shared_ptr<ImageLoad> m_load;
    QPointer<QQmlComponent> m_content;
    QPointer<QQmlComponent> m_placeholder;
    QPointer<QQuickItem> m_item;
    /// The shown or hidden placeholder. It is kept for the next URL, because it takes longer to
    /// create than the content, and the items of rows are reused.
    QPointer<QQuickItem> m_placeholderItem;
    /// The cache key of the shown picture; empty before anything is shown.
    std::optional<qint64> m_shownImageKey;
    bool m_isPresent = false;
};

/// Shows a picture at its full size. A picture from the caches shows in the first frame.
class TOLVANE_VIEWS_AUTOTEST_EXPORT CachedAsyncImage : public tolvane::AsyncImage
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit CachedAsyncImage(QQuickItem *parent = nullptr)
        : AsyncImage(parent)
    {
    }
};

/// Shows a picture scaled down; always begins with the placeholder.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ThumbnailAsyncImage : public tolvane::AsyncImage
{
    Q_OBJECT
    QML_ELEMENT
    /// In pixels. The thumbnail covers this size, keeps the picture's aspect ratio, and has the
    /// resolution of the screen.
    Q_PROPERTY(QSizeF thumbnailSize READ thumbnailSize WRITE setThumbnailSize NOTIFY
                   thumbnailSizeChanged REQUIRED)

public:
    explicit ThumbnailAsyncImage(QQuickItem *parent = nullptr)
        : AsyncImage(parent, QSizeF())
    {
    }

    QSizeF thumbnailSize() const { return *requestedSize(); }
    void setThumbnailSize(const QSizeF &size);

Q_SIGNALS:
    void thumbnailSizeChanged();
};

} // namespace tolvane
