// SPDX-License-Identifier: MIT
#include "ui/icons/icon.h"

#include "ui/icons/iconcache.h"
#include "ui/icons/icontextures.h"

#include <QtQml/QQmlInfo>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGGeometryNode>
#include <QtQuick/QSGImageNode>
#include <QtQuick/QSGTextureMaterial>

#include <memory>
#include <utility>

namespace tolvane {

namespace {

/// Draws a texture that it shares with other nodes.
class IconNode : public QSGNode
{
public:
    virtual void show(std::shared_ptr<QSGTexture> texture, const QRectF &rect) = 0;
};

/// With the same material for every opacity: Qt's image node has another one for opaque items, and
/// each takes a shader program.
class MaterialIconNode final : public IconNode
{
public:
    MaterialIconNode()
        : m_geometry(QSGGeometry::defaultAttributes_TexturedPoint2D(), 4)
    {
        m_material.setFlag(QSGMaterial::Blending);
        m_material.setFiltering(QSGTexture::Linear);
        m_node.setFlag(OwnedByParent, false);
        m_node.setGeometry(&m_geometry);
        m_node.setMaterial(&m_material);
        appendChildNode(&m_node);
    }

    void show(std::shared_ptr<QSGTexture> texture, const QRectF &rect) override
    {
        QSGGeometry::updateTexturedRectGeometry(&m_geometry, rect,
                                                texture->normalizedTextureSubRect());
        m_material.setTexture(texture.get());
        m_node.markDirty(DirtyGeometry | DirtyMaterial);
        m_texture = std::move(texture);
    }

private:
    std::shared_ptr<QSGTexture> m_texture;
    QSGGeometry m_geometry;
    QSGTextureMaterial m_material;
    QSGGeometryNode m_node;
};

/// For the software renderer, which has no materials.
class SoftwareIconNode final : public IconNode
{
public:
    explicit SoftwareIconNode(QQuickWindow &window)
        : m_picture(window.createImageNode())
    {
        m_picture->setOwnsTexture(false);
        m_picture->setFiltering(QSGTexture::Linear);
        appendChildNode(m_picture);
    }

    void show(std::shared_ptr<QSGTexture> texture, const QRectF &rect) override
    {
        m_picture->setTexture(texture.get());
        m_picture->setRect(rect);
        m_texture = std::move(texture);
    }

private:
    std::shared_ptr<QSGTexture> m_texture;
    QSGImageNode *m_picture;
};

IconNode *makeNode(QQuickWindow &window)
{
    if (QSGRendererInterface::isApiRhiBased(window.rendererInterface()->graphicsApi()))
        return new MaterialIconNode;
    return new SoftwareIconNode(window);
}

} // namespace

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

QSGNode *Icon::updatePaintNode(QSGNode *before, UpdatePaintNodeData *)
{
    if (m_image.isNull()) {
        delete before;
        return nullptr;
    }
    auto *node = static_cast<IconNode *>(before);
    if (!node)
        node = makeNode(*window());
    node->show(sharedTexture(*window(), m_image), boundingRect());
    return node;
}

} // namespace tolvane
