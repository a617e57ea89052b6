// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedcorner.h"

#include "ui/shapes/roundedcornernode.h"

#include <QtQuick/QQuickWindow>

namespace tolvane {

RoundedCorner::RoundedCorner(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

template <typename Value>
void RoundedCorner::change(Value &member, const Value &value)
{
    if (member == value)
        return;
    member = value;
    update();
    Q_EMIT appearanceChanged();
}

void RoundedCorner::setColor(const QColor &color)
{
    change(m_color, color);
}

void RoundedCorner::setRadius(qreal radius)
{
    change(m_radius, radius);
}

void RoundedCorner::setCorners(RoundedImage::Corners corners)
{
    change(m_corners, corners);
}

void RoundedCorner::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void RoundedCorner::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged)
        update();
}

QSGNode *RoundedCorner::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (size().isEmpty() || m_color.alpha() == 0) {
        delete node;
        return nullptr;
    }
    auto *corners =
        node ? static_cast<RoundedCornerNode *>(node) : RoundedCornerNode::make(*window());
    corners->update(placed(size(), boundingRect(), FillMode::stretch,
                           {.radius = m_radius, .corners = int(m_corners), .isCircle = false}),
                    m_color, window()->effectiveDevicePixelRatio());
    return corners;
}

} // namespace tolvane
