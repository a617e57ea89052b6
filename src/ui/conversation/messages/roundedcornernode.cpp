// SPDX-License-Identifier: MIT
#include "ui/conversation/messages/roundedcornernode.h"

#include <QtGui/QPainter>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGGeometryNode>
#include <QtQuick/QSGNinePatchNode>
#include <QtQuick/QSGVertexColorMaterial>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

namespace tolvane {

namespace {

/// A point of the outline, with the half of the line along which the shape fades out there.
struct Edge
{
    QPointF place;
    QPointF fading;
};

/// Clockwise from the left end of the upper left corner.
std::vector<Edge> outlineOf(const RoundedShape &shape, qreal fading)
{
    constexpr int steps = 10;
    const QRectF &rect = shape.target;
    const auto [topLeft, topRight, bottomLeft, bottomRight] = shape.radii;
    std::vector<Edge> outline;
    const auto addCorner = [&](std::size_t which, QPointF place, QPointF outwards, int quarter,
                               bool isEdgeRound) {
        const ContinuousCorner corner = shape.corner(which);
        if (corner.extent <= 0) {
            // Something may go on from an edge without a round corner: no gap is to show there.
            outline.push_back(
                {place, {fading * outwards.x(), isEdgeRound ? fading * outwards.y() : 0}});
            return;
        }
        const QPointF center = place - corner.extent * outwards;
        for (int step = 0; step <= steps; ++step) {
            const qreal angle = (quarter + qreal(step) / steps) * std::numbers::pi / 2;
            outline.push_back(
                {center + corner.extent * corner.at(angle), fading * corner.outwards(angle)});
        }
    };
    const bool isTopRound = topLeft > 0 || topRight > 0;
    const bool isBottomRound = bottomLeft > 0 || bottomRight > 0;
    addCorner(0, rect.topLeft(), {-1, -1}, 2, isTopRound);
    addCorner(1, rect.topRight(), {1, -1}, 3, isTopRound);
    addCorner(3, rect.bottomRight(), {1, 1}, 0, isBottomRound);
    addCorner(2, rect.bottomLeft(), {-1, 1}, 1, isBottomRound);
    return outline;
}

/// Triangles without a texture, which the renderer draws all at once, however many shapes there
/// are. The edge fades out over a pixel.
class MeshNode final : public RoundedCornerNode
{
public:
    MeshNode()
        : m_geometry(QSGGeometry::defaultAttributes_ColoredPoint2D(), 0)
    {
        m_node.setFlag(OwnedByParent, false);
        m_geometry.setDrawingMode(QSGGeometry::DrawTriangles);
        m_node.setGeometry(&m_geometry);
        m_node.setMaterial(&m_material);
        appendChildNode(&m_node);
    }

    void update(const RoundedShape &shape, const QColor &color, qreal pixelRatio) override
    {
        const std::vector<Edge> outline = outlineOf(shape, 0.5 / pixelRatio);
        const int count = int(outline.size());
        m_geometry.allocate(2 * count, 3 * (count - 2) + 6 * count);
        setVertices(outline, color);
        setTriangles(count);
        m_node.markDirty(DirtyGeometry);
    }

private:
    void setVertices(const std::vector<Edge> &outline, const QColor &color)
    {
        const auto part = [&color](float value) {
            return uchar(std::lround(255 * value * color.alphaF()));
        };
        auto *vertex = m_geometry.vertexDataAsColoredPoint2D();
        for (const Edge &edge : outline) {
            const QPointF inside = edge.place - edge.fading;
            const QPointF outside = edge.place + edge.fading;
            vertex++->set(float(inside.x()), float(inside.y()), part(color.redF()),
                          part(color.greenF()), part(color.blueF()), part(1));
            vertex++->set(float(outside.x()), float(outside.y()), 0, 0, 0, 0);
        }
    }

    /// A fan over the inside, and a ring around it.
    void setTriangles(int count)
    {
        quint16 *index = m_geometry.indexDataAsUShort();
        const auto add = [&index](int first, int second, int third) {
            for (const int vertex : {first, second, third})
                *index++ = quint16(vertex);
        };
        for (int point = 1; point < count - 1; ++point)
            add(0, 2 * point, 2 * (point + 1));
        for (int point = 0; point < count; ++point) {
            const int here = 2 * point;
            const int next = 2 * ((point + 1) % count);
            add(here, here + 1, next);
            add(next, here + 1, next + 1);
        }
    }

    QSGGeometry m_geometry;
    QSGVertexColorMaterial m_material;
    QSGGeometryNode m_node;
};

/// A picture of the corners with what is between them stretched, for the renderer that has no
/// triangles.
class PatchNode final : public RoundedCornerNode
{
public:
    explicit PatchNode(QQuickWindow &window)
        : m_window(window)
        , m_patch(window.createNinePatchNode())
    {
        appendChildNode(m_patch);
    }

    void update(const RoundedShape &shape, const QColor &color, qreal pixelRatio) override
    {
        qreal padding = 0;
        for (std::size_t which = 0; which < shape.radii.size(); ++which)
            padding = std::max(padding, std::ceil(shape.corner(which).extent));
        if (m_radii != shape.radii || m_padding != padding || m_color != color ||
            m_pixelRatio != pixelRatio) {
            m_radii = shape.radii;
            m_padding = padding;
            m_color = color;
            m_pixelRatio = pixelRatio;
            m_patch->setTexture(m_window.createTextureFromImage(picture(2 * padding + 1)));
            m_patch->setDevicePixelRatio(pixelRatio);
        }
        m_patch->setPadding(padding, padding, padding, padding);
        m_patch->setBounds(shape.target);
        m_patch->update();
    }

private:
    QImage picture(qreal side) const
    {
        const QRectF bounds(0, 0, side, side);
        const RoundedShape shape{.target = bounds, .source = bounds, .radii = m_radii};
        QImage image((bounds.size() * m_pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(shape.outline(m_pixelRatio), m_color);
        return image;
    }

    QQuickWindow &m_window;
    QSGNinePatchNode *m_patch;
    std::array<qreal, 4> m_radii{};
    qreal m_padding = 0;
    QColor m_color;
    qreal m_pixelRatio = 0;
};

} // namespace

RoundedCornerNode *RoundedCornerNode::make(QQuickWindow &window)
{
    if (QSGRendererInterface::isApiRhiBased(window.rendererInterface()->graphicsApi()))
        return new MeshNode;
    return new PatchNode(window);
}

} // namespace tolvane
