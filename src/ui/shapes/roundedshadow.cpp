// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedshadow.h"

#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGGeometryNode>
#include <QtQuick/QSGVertexColorMaterial>

#include <array>
#include <cmath>
#include <memory>

namespace tolvane {

namespace {

/// An outline of the mesh, and the opacity there as a part of that at the edge.
struct Ring
{
    qreal inset;
    double strength;
};

/// A triangle strip from each ring to the next one. A jump to the next strip repeats vertices.
void fill(QSGGeometry &geometry, const RoundedShape &shape, qreal reach, const QColor &color)
{
    constexpr qreal below = 5;
    const std::array rings = {Ring{below, 1}, Ring{0, 1}, Ring{-reach, 0}};
    const int count = int(shape.points(0).size());
    const int stripLength = 2 * (count + 1);
    constexpr int jump = 2;
    geometry.allocate(count * int(rings.size()),
                      stripLength * int(rings.size() - 1) + jump * int(rings.size() - 2));
    QSGGeometry::ColoredPoint2D *vertex = geometry.vertexDataAsColoredPoint2D();
    for (const Ring &ring : rings) {
        const auto channel = [opacity = color.alphaF() * ring.strength](double value) {
            return uchar(std::lround(255 * value * opacity));
        };
        for (const QPointF &point : shape.points(ring.inset)) {
            (vertex++)->set(float(point.x()), float(point.y()), channel(color.redF()),
                            channel(color.greenF()), channel(color.blueF()), channel(1));
        }
    }
    quint16 *index = geometry.indexDataAsUShort();
    for (int first = 0; first < count * int(rings.size() - 1); first += count) {
        if (first > 0) {
            *index = *(index - 1);
            ++index;
            *index++ = quint16(first);
        }
        for (int at = 0; at <= count; ++at) {
            *index++ = quint16(first + at % count);
            *index++ = quint16(first + at % count + count);
        }
    }
}

} // namespace

QSGNode *RoundedShadow::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    const bool isSoftware =
        !QSGRendererInterface::isApiRhiBased(window()->rendererInterface()->graphicsApi());
    if (isSoftware || size().isEmpty()) {
        delete node;
        return nullptr;
    }
    auto *mesh = static_cast<QSGGeometryNode *>(node);
    if (!mesh) {
        mesh = new QSGGeometryNode;
        mesh->setFlags(QSGNode::OwnsGeometry | QSGNode::OwnsMaterial);
        auto geometry =
            std::make_unique<QSGGeometry>(QSGGeometry::defaultAttributes_ColoredPoint2D(), 0, 0);
        geometry->setDrawingMode(QSGGeometry::DrawTriangleStrip);
        mesh->setGeometry(geometry.release());
        mesh->setMaterial(new QSGVertexColorMaterial);
    }
    const RoundedShape shape = shapeFor(size(), boundingRect(), FillMode::stretch,
                                        {.radius = radius(), .corners = int(corners())});
    fill(*mesh->geometry(), shape, m_reach, m_color);
    mesh->markDirty(QSGNode::DirtyGeometry);
    return mesh;
}

} // namespace tolvane
