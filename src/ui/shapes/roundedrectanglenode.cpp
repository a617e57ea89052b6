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
/// @param pixel the size of a device pixel
Corners cornersOf(const RoundedShape &shape, qreal pixel)
{
    // Less is not seen, and each point is two vertices for every rectangle in a frame.
    const qreal tolerance = pixel / 8;
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
                          .curve = shape.curve(corner, tolerance),
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

    /// The next vertex of the triangle strip.
    void addIndex(int vertex) { m_indices.push_back(quint16(vertex)); }

    /// Ends the strip, and continues with another one at this vertex.
    void startStripAt(int vertex)
    {
        if (m_indices.empty())
            return;
        addIndex(m_indices.back());
        addIndex(vertex);
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

/// A point of the outline, as vertices on either side of it: over a device pixel the shape fades
/// out.
struct OutlinePoint
{
    int inside;
    int outside;
};

struct Outline
{
    std::vector<OutlinePoint> points;
    /// Where the points of each corner begin and end.
    std::array<std::size_t, 5> bounds{};

    int first(std::size_t corner) const { return points.at(bounds.at(corner)).inside; }
    int last(std::size_t corner) const { return points.at(bounds.at(corner + 1) - 1).inside; }
};

/// @param inset the distance from the shape's outline
/// @param pixel the size of a device pixel, negative if the shape is outside of the outline
Outline addOutline(Mesh &mesh, const Corners &corners, qreal inset, qreal pixel)
{
    Outline outline;
    for (std::size_t at = 0; at < corners.size(); ++at) {
        const Corner &corner = corners.at(at);
        for (const auto &[position, normal] : corner.curve) {
            const QPointF edge = corner.center + corner.extent * position - inset * normal;
            const QPointF fading =
                pixel / 2 * QPointF(normal.x() * corner.fading.x(), normal.y() * corner.fading.y());
            outline.points.push_back({.inside = mesh.addVertex(edge - fading, true),
                                      .outside = mesh.addVertex(edge + fading, false)});
        }
        outline.bounds.at(at + 1) = outline.points.size();
    }
    return outline;
}

/// The octagon between the ends of the corners, and what each corner adds to it. Triangles over the
/// whole width for each point of a corner would take the renderer longer.
void fill(Mesh &mesh, const Outline &outline)
{
    // The corners are clockwise from the top left.
    for (const int vertex : {outline.last(0), outline.first(1), outline.first(0), outline.last(1),
                             outline.last(3), outline.first(2), outline.first(3), outline.last(2)})
        mesh.addIndex(vertex);
    for (std::size_t corner = 0; corner < rectangleCorners.size(); ++corner) {
        std::size_t low = outline.bounds.at(corner);
        std::size_t high = outline.bounds.at(corner + 1) - 1;
        if (high < low + 2)
            continue;
        mesh.startStripAt(outline.points.at(low).inside);
        for (; low < high; ++low, --high) {
            mesh.addIndex(outline.points.at(low).inside);
            mesh.addIndex(outline.points.at(high).inside);
        }
        if (low == high)
            mesh.addIndex(outline.points.at(low).inside);
    }
}

/// Between two vertices of each point, all around.
void fillAround(Mesh &mesh, const std::vector<OutlinePoint> &sides)
{
    mesh.startStripAt(sides.front().inside);
    for (std::size_t at = 0; at <= sides.size(); ++at) {
        mesh.addIndex(sides.at(at % sides.size()).inside);
        mesh.addIndex(sides.at(at % sides.size()).outside);
    }
}

/// All areas are strips like the triangles of Qt's rectangles, so that the renderer draws them in
/// one batch.
/// @param pixel the size of a device pixel
Mesh meshOf(const RoundedShape &shape, const QColor &color, qreal pixel)
{
    Mesh mesh(color);
    const Corners corners = cornersOf(shape, pixel);
    const Outline outer = addOutline(mesh, corners, 0, pixel);
    if (shape.rim > 0) {
        const Outline inner = addOutline(mesh, corners, shape.rim, -pixel);
        std::vector<OutlinePoint> between;
        for (std::size_t at = 0; at < outer.points.size(); ++at)
            between.push_back({outer.points.at(at).inside, inner.points.at(at).inside});
        fillAround(mesh, between);
        fillAround(mesh, inner.points);
    } else {
        fill(mesh, outer);
    }
    fillAround(mesh, outer.points);
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
        m_geometry.setDrawingMode(QSGGeometry::DrawTriangleStrip);
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
        padding = std::max(padding, std::ceil(shape.rim));
        if (m_rim != shape.rim || m_radii != shape.radii || m_padding != padding ||
            m_color != color || m_pixelRatio != pixelRatio) {
            m_rim = shape.rim;
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
        const RoundedShape shape{
            .target = bounds, .source = bounds, .radii = m_radii, .rim = m_rim};
        QImage image((bounds.size() * m_pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(shape.outline(m_pixelRatio), m_color);
        return image;
    }

    QQuickWindow &m_window;
    QSGNinePatchNode *m_patch;
    qreal m_rim = 0;
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
