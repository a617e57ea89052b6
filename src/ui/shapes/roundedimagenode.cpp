// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedmaterial.h"
#include "ui/shapes/roundednode.h"

#include <QtGui/QPainter>
#include <QtQuick/QSGSimpleTextureNode>

#include <array>

namespace tolvane {

namespace {

/// Rounds the corners with a shader.
class ShaderNode final : public RoundedNode<QImage>
{
public:
    explicit ShaderNode(QQuickWindow &window)
        : m_window(window)
        , m_geometry(attributes(), 4)
    {
        m_node.setFlag(OwnedByParent, false);
        m_node.setGeometry(&m_geometry);
        m_node.setMaterial(&m_material);
        appendChildNode(&m_node);
    }

    void update(const QImage &image, const RoundedShape &shape, qreal pixelRatio) override
    {
        setTexture(image, shape, pixelRatio);
        m_material.setShape(shape);
        setVertices(image.size(), shape);
        m_node.markDirty(DirtyMaterial | DirtyGeometry);
    }

private:
    struct Vertex
    {
        float x, y;
        float u, v;
        float fromCenterX, fromCenterY;
    };

    static const QSGGeometry::AttributeSet &attributes()
    {
        using Attribute = QSGGeometry::Attribute;
        static const std::array list = {
            Attribute::createWithAttributeType(0, 2, QSGGeometry::FloatType,
                                               QSGGeometry::PositionAttribute),
            Attribute::createWithAttributeType(1, 2, QSGGeometry::FloatType,
                                               QSGGeometry::TexCoordAttribute),
            Attribute::createWithAttributeType(2, 2, QSGGeometry::FloatType,
                                               QSGGeometry::UnknownAttribute),
        };
        static const QSGGeometry::AttributeSet set = {int(list.size()), sizeof(Vertex),
                                                      list.data()};
        return set;
    }

    void setTexture(const QImage &image, const RoundedShape &shape, qreal pixelRatio)
    {
        const bool isShrunk = shape.source.width() > shape.target.width() * pixelRatio ||
                              shape.source.height() > shape.target.height() * pixelRatio;
        const bool isNew = m_imageKey != image.cacheKey();
        if (!isNew && (m_hasMipmaps || !isShrunk))
            return;
        m_imageKey = image.cacheKey();
        m_hasMipmaps = isShrunk;
        std::unique_ptr<QSGTexture> texture(m_window.createTextureFromImage(
            image,
            isShrunk ? QQuickWindow::TextureHasMipmaps : QQuickWindow::CreateTextureOptions()));
        texture->setFiltering(QSGTexture::Linear);
        texture->setMipmapFiltering(isShrunk ? QSGTexture::Linear : QSGTexture::None);
        texture->setHorizontalWrapMode(QSGTexture::ClampToEdge);
        texture->setVerticalWrapMode(QSGTexture::ClampToEdge);
        m_material.setTexture(std::move(texture));
    }

    void setVertices(const QSizeF &picture, const RoundedShape &shape)
    {
        auto *vertex = static_cast<Vertex *>(m_geometry.vertexData());
        for (const double y : {0.0, 1.0}) {
            for (const double x : {0.0, 1.0}) {
                const QSizeF size = shape.target.size();
                *vertex++ = {
                    float(shape.target.x() + x * size.width()),
                    float(shape.target.y() + y * size.height()),
                    float((shape.source.x() + x * shape.source.width()) / picture.width()),
                    float((shape.source.y() + y * shape.source.height()) / picture.height()),
                    float((x - 0.5) * size.width()),
                    float((y - 0.5) * size.height())};
            }
        }
    }

    QQuickWindow &m_window;
    QSGGeometry m_geometry;
    RoundedMaterial m_material;
    QSGGeometryNode m_node;
    qint64 m_imageKey = 0;
    bool m_hasMipmaps = false;
};

/// Paints the picture as it appears on the screen, for the renderer without shaders.
QImage painted(const QImage &image, const RoundedShape &shape, qreal pixelRatio)
{
    const QSize size = (shape.target.size() * pixelRatio).toSize().expandedTo(QSize(1, 1));
    const double x = size.width() / shape.source.width();
    const double y = size.height() / shape.source.height();
    // The painter's own transformation is not smooth when it scales down.
    const QImage part = image.copy(shape.source.toAlignedRect());
    const QImage scaled =
        part.scaled(qMax(1, qRound(part.width() * x)), qMax(1, qRound(part.height() * y)),
                    Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing, shape.isRounded());
    QBrush brush(scaled);
    const QPointF offset = shape.source.topLeft() - shape.source.toAlignedRect().topLeft();
    brush.setTransform(QTransform::fromTranslate(-offset.x() * x, -offset.y() * y));
    painter.fillPath(shape.outline(pixelRatio), brush);
    return result;
}

/// Rounds the corners with QPainter.
class PaintedNode final : public RoundedNode<QImage>
{
public:
    explicit PaintedNode(QQuickWindow &window)
        : m_window(window)
    {
        m_node.setFlag(OwnedByParent, false);
        m_node.setOwnsTexture(true);
        appendChildNode(&m_node);
    }

    void update(const QImage &image, const RoundedShape &shape, qreal pixelRatio) override
    {
        m_node.setTexture(m_window.createTextureFromImage(painted(image, shape, pixelRatio)));
        m_node.setRect(shape.target);
    }

private:
    QQuickWindow &m_window;
    QSGSimpleTextureNode m_node;
};

} // namespace

template <>
RoundedNode<QImage> *RoundedNode<QImage>::make(QQuickWindow &window)
{
    if (isSoftware(window))
        return new PaintedNode(window);
    return new ShaderNode(window);
}

} // namespace tolvane
