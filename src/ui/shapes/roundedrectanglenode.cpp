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

/// A corner of a shape: the centre of its curve, the curve as points relative to the centre, and
/// the fraction of a pixel over which the shape fades out there, horizontally and vertically.
struct Corner
{
    QPointF middle;
    qreal extent;
    std::vector<CurvePoint> curve;
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
        const bool isEdgeRound = corner.outwards.y() < 0 ? isTopRound : isBottomRound;
        corners.at(at) = {.middle = corner.placeIn(shape.target) - extent * corner.outwards,
                          .extent = extent,
                          .curve = shape.curve(corner, steps),
                          // Another shape may adjoin an edge without a curve: there must be no gap.
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
        const auto part = [&color](float value) {
            return uchar(std::lround(255 * value * color.alphaF()));
        };
        m_color.set(0, 0, part(color.redF()), part(color.greenF()), part(color.blueF()), part(1));
    }

    int add(const QPointF &place, bool isOpaque)
    {
        QSGGeometry::ColoredPoint2D vertex{};
        if (isOpaque)
            vertex = m_color;
        vertex.x = float(place.x());
        vertex.y = float(place.y());
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

/// A mesh of few large triangles inside, small fans at the corners, and a rim around them that
/// fades out over a device pixel.
/// @param pixel the size of a device pixel
Mesh meshOf(const RoundedShape &shape, const QColor &color, qreal pixel)
{
    Mesh mesh(color);
    std::array<int, 4> middles{};
    struct RimPoint
    {
        int middle;
        int inside;
        int outside;
    };
    std::vector<RimPoint> rim;
    const Corners corners = cornersOf(shape);
    for (std::size_t at = 0; at < corners.size(); ++at) {
        const Corner &corner = corners.at(at);
        middles.at(at) = mesh.add(corner.middle, true);
        for (const auto &[direction, outwards] : corner.curve) {
            const QPointF place = corner.middle + corner.extent * direction;
            const QPointF fading =
                pixel / 2 *
                QPointF(outwards.x() * corner.fading.x(), outwards.y() * corner.fading.y());
            rim.push_back({.middle = middles.at(at),
                           .inside = mesh.add(place - fading, true),
                           .outside = mesh.add(place + fading, false)});
        }
    }
    mesh.addStrip(middles[0], middles[3], middles[1], middles[2]);
    for (std::size_t at = 0; at < rim.size(); ++at) {
        const RimPoint &here = rim.at(at);
        const RimPoint &next = rim.at((at + 1) % rim.size());
        mesh.addTriangle(here.middle, here.inside, next.inside);
        if (here.middle != next.middle)
            mesh.addTriangle(here.middle, next.inside, next.middle);
        mesh.addStrip(here.inside, here.outside, next.inside, next.outside);
    }
    return mesh;
}

/// Triangles without a texture: the renderer batches them, however many shapes there are.
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

/// An image of the corners, stretched between them, for the software renderer, which draws no
/// triangles.
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
