// SPDX-License-Identifier: MIT
#include "ui/icons/icon.h"

#include "ui/icons/iconcache.h"

#include <QtQml/QQmlInfo>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGImageNode>

namespace tolvane {

Icon::Icon(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    setImplicitSize(24, 24);
}

void Icon::setName(const QString &name)
{
    if (name == m_name)
        return;
    m_name = name;
    m_exists = IconCache::hasIcon(name);
    if (!m_exists && !name.isEmpty())
        qmlWarning(this) << "there is no icon " << name;
    polish();
    Q_EMIT nameChanged();
}

void Icon::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    polish();
    Q_EMIT colorChanged();
}

void Icon::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void Icon::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        polish();
}

void Icon::updatePolish()
{
    const QSize pixels =
        window() ? (size() * window()->effectiveDevicePixelRatio()).toSize() : QSize();
    m_image = m_exists && !pixels.isEmpty() ? IconCache::shared().image(m_name, pixels, m_color)
                                            : QImage();
    update();
}

QSGNode *Icon::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (m_image.isNull()) {
        delete node;
        return nullptr;
    }
    auto *picture = static_cast<QSGImageNode *>(node);
    if (!picture) {
        picture = window()->createImageNode();
        picture->setOwnsTexture(true);
        picture->setFiltering(QSGTexture::Linear);
    }
    picture->setTexture(
        window()->createTextureFromImage(m_image, QQuickWindow::TextureCanUseAtlas));
    picture->setRect(boundingRect());
    return picture;
}

} // namespace tolvane
