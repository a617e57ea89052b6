// SPDX-License-Identifier: MIT
#include "ui/shapes/roundednode.h"

#include <QtGui/QPainter>
#include <QtQuick/QSGGeometryNode>
#include <QtQuick/QSGNinePatchNode>
#include <QtQuick/QSGVertexColorMaterial>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tolvane {

namespace {

/// A corner of a shape.
struct Corner
{
    QPointF center;
    qreal extent;
    /// Relative to the centre, for an extent of 1.
    std::vector<CurvePoint> curve;
    /// The width of the antialiased edge, as a fraction of a pixel in either direction.
    QPointF fading;
};

using Corners = std::array<Corner, 4>;

/// In the order of rectangleCorners.
Corners cornersOf(const RoundedShape &shape)
{
    constexpr int steps = 10;
    const auto [topLeft, topRight, bottomLeft, bottomRight] = shape.radii;
    const bool isTopRound = topLeft > 0 || topRight > 0;
    const bool isBottomRound = bottomLeft > 0 || bottomRight > 0;
    Corners corners;
    for (std::size_t at = 0; at < corners.size(); ++at) {
        const RectangleCorner &corner = rectangleCorners.at(at);
        const qreal extent = shape.corner(corner.index).extent;
        const bool isEdgeRound = corner.direction.y() < 0 ? isTopRound : isBottomRound;
        corners.at(at) = {.center = corner.positionIn(shape.target) - extent * corner.direction,
                          .extent = extent,
                          .curve = shape.curve(corner, steps),
                          // A straight edge may adjoin another shape, without a gap between them.
                          .fading = {1.0, isEdgeRound ? 1.0 : 0.0}};
    }
    return corners;
}

/// Collects vertices and triangles.
class Mesh
{
public:
    explicit Mesh(const QColor &color)
    {
        const auto channel = [&color](float value) {
            return uchar(std::lround(255 * value * color.alphaF()));
        };
        m_color.set(0, 0, channel(color.redF()), channel(color.greenF()), channel(color.blueF()),
                    channel(1));
    }

    int addVertex(const QPointF &position, bool isOpaque)
    {
        QSGGeometry::ColoredPoint2D vertex{};
        if (isOpaque)
            vertex = m_color;
        vertex.x = float(position.x());
        vertex.y = float(position.y());
        m_vertices.push_back(vertex);
        return int(m_vertices.size()) - 1;
    }

    void addTriangle(int first, int second, int third)
    {
        for (const int vertex : {first, second, third})
            m_indices.push_back(quint16(vertex));
    }

    void addStrip(int left, int right, int nextLeft, int nextRight)
    {
        addTriangle(left, right, nextLeft);
        addTriangle(nextLeft, right, nextRight);
    }

    void copyTo(QSGGeometry &geometry) const
    {
        geometry.allocate(int(m_vertices.size()), int(m_indices.size()));
        std::ranges::copy(m_vertices, geometry.vertexDataAsColoredPoint2D());
        std::ranges::copy(m_indices, geometry.indexDataAsUShort());
    }

private:
    QSGGeometry::ColoredPoint2D m_color{};
    std::vector<QSGGeometry::ColoredPoint2D> m_vertices;
    std::vector<quint16> m_indices;
};

/// Creates a mesh with few large triangles inside, small fans at the corners, and a rim around them
/// that fades out over a device pixel.
/// @param pixel the size of a device pixel
Mesh meshOf(const RoundedShape &shape, const QColor &color, qreal pixel)
{
    Mesh mesh(color);
    std::array<int, 4> centers{};
    struct RimPoint
    {
        int center;
        int inside;
        int outside;
    };
    std::vector<RimPoint> rim;
    const Corners corners = cornersOf(shape);
    for (std::size_t at = 0; at < corners.size(); ++at) {
        const Corner &corner = corners.at(at);
        centers.at(at) = mesh.addVertex(corner.center, true);
        for (const auto &[position, normal] : corner.curve) {
            const QPointF edge = corner.center + corner.extent * position;
            const QPointF fading =
                pixel / 2 * QPointF(normal.x() * corner.fading.x(), normal.y() * corner.fading.y());
            rim.push_back({.center = centers.at(at),
                           .inside = mesh.addVertex(edge - fading, true),
                           .outside = mesh.addVertex(edge + fading, false)});
        }
    }
    mesh.addStrip(centers[0], centers[3], centers[1], centers[2]);
    for (std::size_t at = 0; at < rim.size(); ++at) {
        const RimPoint &here = rim.at(at);
        const RimPoint &next = rim.at((at + 1) % rim.size());
        mesh.addTriangle(here.center, here.inside, next.inside);
        if (here.center != next.center)
            mesh.addTriangle(here.center, next.inside, next.center);
        mesh.addStrip(here.inside, here.outside, next.inside, next.outside);
    }
    return mesh;
}

/// Draws triangles without a texture, because the renderer batches those of all shapes.
class MeshNode final : public RoundedNode<QColor>
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

    void update(const QColor &color, const RoundedShape &shape, qreal pixelRatio) override
    {
        meshOf(shape, color, 1 / pixelRatio).copyTo(m_geometry);
        m_node.markDirty(DirtyGeometry);
    }

private:
    QSGGeometry m_geometry;
    QSGVertexColorMaterial m_material;
    QSGGeometryNode m_node;
};

/// Draws an image of the corners, stretched between them, with the software renderer, which cannot
/// draw triangles.
class NinePatchNode final : public RoundedNode<QColor>
{
public:
    explicit NinePatchNode(QQuickWindow &window)
        : m_window(window)
        , m_patch(window.createNinePatchNode())
    {
        appendChildNode(m_patch);
    }

    void update(const QColor &color, const RoundedShape &shape, qreal pixelRatio) override
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

template <>
RoundedNode<QColor> *RoundedNode<QColor>::make(QQuickWindow &window)
{
    if (isSoftware(window))
        return new NinePatchNode(window);
    return new MeshNode;
}

} // namespace tolvane
