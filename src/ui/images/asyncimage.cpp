// SPDX-License-Identifier: MIT
#include "ui/images/asyncimage.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQml/qqmlinfo.h>
#include <QtQuick/QQuickWindow>

namespace tolvane {

namespace {

// The cache key of a null image.
constexpr qint64 nullImageKey = 0;

void dispose(QQuickItem *item)
{
    if (!item)
        return;
    item->setParentItem(nullptr);
    // Deferred: the item may be emitting the signal that replaces it.
    item->deleteLater();
}

} // namespace

AsyncImage::AsyncImage(QQuickItem *parent, const std::optional<QSizeF> &thumbnailSize)
    : QQuickItem(parent)
    , m_thumbnailSize(thumbnailSize)
{
    restartLoad();
}

void AsyncImage::setUrl(const QUrl &url)
{
    if (m_url == url)
        return;
    m_url = url;
    restartLoad();
    Q_EMIT urlChanged();
}

void AsyncImage::setRequestedSize(const QSizeF &size)
{
    m_thumbnailSize = size;
    restartLoad();
}

void AsyncImage::setContent(QQmlComponent *content)
{
    if (m_content == content)
        return;
    m_content = content;
    if (m_shownImageKey && *m_shownImageKey != nullImageKey)
        show(m_load->image());
    Q_EMIT contentChanged();
}

void AsyncImage::setPlaceholder(QQmlComponent *placeholder)
{
    if (m_placeholder == placeholder)
        return;
    m_placeholder = placeholder;
    dispose(m_placeholderItem);
    m_placeholderItem = nullptr;
    if (m_shownImageKey == nullImageKey)
        show({});
    Q_EMIT placeholderChanged();
}

void AsyncImage::restartLoad()
{
    if (m_load)
        m_load->disconnect(this);
    m_load = std::make_shared<ImageLoad>(m_url, m_thumbnailSize);
    connect(m_load.get(), &ImageLoad::changed, this, [this] {
        Q_EMIT loadChanged();
        updateShownItem();
    });
    Q_EMIT loadChanged();
    if (m_isPresent)
        appear();
}

void AsyncImage::componentComplete()
{
    QQuickItem::componentComplete();
    updatePresence(window());
}

void AsyncImage::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange)
        updatePresence(data.window);
    else if (change == ItemVisibleHasChanged)
        updatePresence(window());
}

void AsyncImage::updatePresence(const QQuickWindow *window)
{
    const bool isPresent = isComponentComplete() && window && isVisible();
    if (m_isPresent == isPresent)
        return;
    m_isPresent = isPresent;
    if (isPresent)
        appear();
}

void AsyncImage::appear()
{
    m_load->loadFromCaches();
    updateShownItem();
    m_load->start(window()->effectiveDevicePixelRatio());
}

void AsyncImage::retry()
{
    if (window())
        m_load->retry(window()->effectiveDevicePixelRatio());
}

void AsyncImage::updateShownItem()
{
    // An item that has never appeared shows nothing, not even the placeholder.
    if (!m_isPresent && !m_shownImageKey)
        return;
    const QImage picture = m_load->image();
    if (m_shownImageKey != picture.cacheKey())
        show(picture);
}

void AsyncImage::show(const QImage &picture)
{
    m_shownImageKey = picture.cacheKey();
    if (!picture.isNull()) {
        replaceItem(m_content ? createItem(*m_content, {{QStringLiteral("image"), picture}})
                              : nullptr);
        return;
    }
    if (!m_placeholderItem)
        m_placeholderItem = createItem(m_placeholder ? *m_placeholder : defaultPlaceholder(), {});
    replaceItem(m_placeholderItem);
}

QQuickItem *AsyncImage::createItem(QQmlComponent &component, const QVariantMap &properties)
{
    QQmlContext *context = component.creationContext();
    if (!context)
        context = qmlContext(this);
    // A view that is about to be deleted has already lost its context.
    if (!context || !context->isValid())
        return nullptr;
    // Qt 6.4 crashes over initial properties for a component that did not compile.
    QObject *object =
        component.isReady() ? component.createWithInitialProperties(properties, context) : nullptr;
    auto *item = qobject_cast<QQuickItem *>(object);
    if (!item) {
        delete object;
        qmlWarning(this, component.errors()) << "cannot create the item to show";
        return nullptr;
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    return item;
}

QQmlComponent &AsyncImage::defaultPlaceholder()
{
    // Compiled once for each engine, and deleted with it.
    const QString name = QStringLiteral("tolvaneCommonPlaceholder");
    QQmlEngine *engine = qmlEngine(this);
    auto *component = engine->findChild<QQmlComponent *>(name, Qt::FindDirectChildrenOnly);
    if (!component) {
        const QUrl file(QStringLiteral(
            "qrc:/qt-project.org/imports/Tolvane/Private/images/ImagePlaceholder.qml"));
        component = new QQmlComponent(engine, file, engine);
        component->setObjectName(name);
    }
    return *component;
}

void AsyncImage::replaceItem(QQuickItem *item)
{
    if (m_item) {
        m_item->disconnect(this);
        if (m_item == m_placeholderItem)
            m_item->setVisible(false);
        else
            dispose(m_item);
    }
    m_item = item;
    if (item) {
        item->setVisible(true);
        item->setParent(this);
        item->setParentItem(this);
        connect(item, &QQuickItem::implicitWidthChanged, this, &AsyncImage::syncGeometry);
        connect(item, &QQuickItem::implicitHeightChanged, this, &AsyncImage::syncGeometry);
    }
    syncGeometry();
    Q_EMIT itemChanged();
}

void AsyncImage::syncGeometry()
{
    setImplicitSize(m_item ? m_item->implicitWidth() : 0, m_item ? m_item->implicitHeight() : 0);
    if (m_item)
        m_item->setSize(size());
}

void AsyncImage::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (m_item)
        m_item->setSize(newGeometry.size());
}

void ThumbnailAsyncImage::setThumbnailSize(const QSizeF &size)
{
    if (thumbnailSize() == size)
        return;
    setRequestedSize(size);
    Q_EMIT thumbnailSizeChanged();
}

} // namespace tolvane
