// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedclip.h"

#include "ui/shapes/roundedshape.h"

#include <QtQuick/QSGNode>

#include <vector>

namespace tolvane {

namespace {

constexpr qreal outlineWidth = 1;

/// Fills a convex shape with a triangle strip, which goes from one side to the other and back.
void fill(QSGGeometry &geometry, const std::vector<QPointF> &outline)
{
    const std::size_t count = outline.size();
    geometry.allocate(int(count));
    QSGGeometry::Point2D *vertex = geometry.vertexDataAsPoint2D();
    for (std::size_t at = 0; at < count; ++at) {
        const QPointF &point = outline.at(at % 2 == 0 ? at / 2 : count - 1 - at / 2);
        (vertex++)->set(float(point.x()), float(point.y()));
    }
}

/// Gives the item's own clip node the rounded shape. Qt resets that node to a rectangle whenever
/// the size of the item changes, and creates it after this node.
class ClipShapeNode final : public QSGNode
{
public:
    ClipShapeNode()
        : m_geometry(QSGGeometry::defaultAttributes_Point2D(), 0)
    {
        m_geometry.setDrawingMode(QSGGeometry::DrawTriangleStrip);
        setFlag(UsePreprocess);
    }

    void setShape(const RoundedShape &shape)
    {
        m_shape = shape;
        m_isChanged = true;
    }

    void preprocess() override
    {
        QSGClipNode *clip = clipNode();
        if (!clip || (!m_isChanged && clip->isRectangular() != m_shape.isRounded()))
            return;
        m_isChanged = false;
        fill(m_geometry, m_shape.points(outlineWidth / 2));
        clip->setGeometry(&m_geometry);
        clip->setIsRectangular(!m_shape.isRounded());
        clip->markDirty(DirtyGeometry);
    }

private:
    QSGClipNode *clipNode() const
    {
        for (QSGNode *node = parent(); node && node->type() != TransformNodeType;
             node = node->parent()) {
            if (node->type() == ClipNodeType)
                return static_cast<QSGClipNode *>(node);
        }
        return nullptr;
    }

    QSGGeometry m_geometry;
    RoundedShape m_shape;
    bool m_isChanged = false;
};

} // namespace

QSGNode *RoundedClip::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *shape = node ? static_cast<ClipShapeNode *>(node) : new ClipShapeNode;
    const bool isRounded = radius() > 0;
    const qreal margin = isRounded ? outlineWidth : outlineWidth / 2;
    shape->setShape(shapeFor(
        size(), boundingRect().adjusted(-margin, -margin, margin, margin), FillMode::stretch,
        {.radius = isRounded ? radius() + outlineWidth : 0, .corners = int(corners())}));
    return shape;
}

} // namespace tolvane
