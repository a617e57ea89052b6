// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedrectangle.h"

#include "ui/shapes/roundedrectanglenode.h"

#include <QtQuick/QQuickWindow>

namespace tolvane {

RoundedRectangle::RoundedRectangle(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

template <typename Value>
void RoundedRectangle::change(Value &member, const Value &value)
{
    if (member == value)
        return;
    member = value;
    update();
    Q_EMIT appearanceChanged();
}

void RoundedRectangle::setColor(const QColor &color)
{
    change(m_color, color);
}

void RoundedRectangle::setRadius(qreal radius)
{
    change(m_radius, radius);
}

void RoundedRectangle::setCorners(RoundedImage::Corners corners)
{
    change(m_corners, corners);
}

void RoundedRectangle::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void RoundedRectangle::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged)
        update();
}

QSGNode *RoundedRectangle::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (size().isEmpty() || m_color.alpha() == 0) {
        delete node;
        return nullptr;
    }
    auto *corners =
        node ? static_cast<RoundedRectangleNode *>(node) : RoundedRectangleNode::make(*window());
    corners->update(shapeFor(size(), boundingRect(), FillMode::stretch,
                             {.radius = m_radius, .corners = int(m_corners), .isCircle = false}),
                    m_color, window()->effectiveDevicePixelRatio());
    return corners;
}

} // namespace tolvane
