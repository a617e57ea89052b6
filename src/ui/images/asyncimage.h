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

/// Shows what it makes of a picture once there is one, and a placeholder before.
///
/// Loading begins as the item appears: it is complete, visible and in a window. What it shows takes
/// the item's size, and gives it an implicit one.
class TOLVANE_VIEWS_AUTOTEST_EXPORT AsyncImage : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS
    /// Empty, or no http or https address: the placeholder stays.
    Q_PROPERTY(QUrl url READ url WRITE setUrl NOTIFY urlChanged)
    /// Made with its property `image` set to the picture.
    Q_PROPERTY(QQmlComponent *content READ content WRITE setContent NOTIFY contentChanged)
    /// A progress indicator, unless there is another.
    Q_PROPERTY(
        QQmlComponent *placeholder READ placeholder WRITE setPlaceholder NOTIFY placeholderChanged)
    /// Null until there is one.
    Q_PROPERTY(QImage image READ image NOTIFY loadChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY loadChanged)
    /// What is shown now: the content or the placeholder.
    Q_PROPERTY(QQuickItem *item READ item NOTIFY itemChanged)

public:
    QUrl url() const { return m_url; }
    /// Another picture begins anew: a load that runs for the one before only fills the caches.
    void setUrl(const QUrl &url);
    QQmlComponent *content() const { return m_content; }
    void setContent(QQmlComponent *content);
    QQmlComponent *placeholder() const { return m_placeholder; }
    void setPlaceholder(QQmlComponent *placeholder);
    QImage image() const { return m_load->image(); }
    bool isLoading() const { return m_load->isLoading(); }
    QQuickItem *item() const { return m_item; }

Q_SIGNALS:
    void urlChanged();
    void contentChanged();
    void placeholderChanged();
    void loadChanged();
    void itemChanged();

protected:
    /// @param thumbnailSize in points; without it, the picture is loaded whole
    explicit AsyncImage(QQuickItem *parent, const std::optional<QSizeF> &thumbnailSize = {});

    const std::optional<QSizeF> &requestedSize() const { return m_thumbnailSize; }
    void requestSize(const QSizeF &size);

    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void startAnew();
    void updatePresence(const QQuickWindow *window);
    void appear();
    void updateBody();
    /// The content for a picture, the placeholder for none.
    void show(const QImage &picture);
    QQuickItem *make(QQmlComponent &component, const QVariantMap &properties);
    QQmlComponent &commonPlaceholder();
    void replaceItem(QQuickItem *item);
    void followItem();

    QUrl m_url;
    std::optional<QSizeF> m_thumbnailSize;
    std::shared_ptr<ImageLoad> m_load;
    QPointer<QQmlComponent> m_content;
    QPointer<QQmlComponent> m_placeholder;
    QPointer<QQuickItem> m_item;
    /// The cache key of what is shown, once anything is.
    std::optional<qint64> m_shownPicture;
    bool m_isPresent = false;
};

/// Shows a picture at its full size. One that is at hand shows in the first frame.
class CachedAsyncImage : public tolvane::AsyncImage
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
class ThumbnailAsyncImage : public tolvane::AsyncImage
{
    Q_OBJECT
    QML_ELEMENT
    /// In points. The thumbnail just fills it and keeps the picture's aspect ratio; it has as many
    /// pixels as the screen shows.
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
