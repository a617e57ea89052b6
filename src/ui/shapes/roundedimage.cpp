// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedimage.h"

#include "ui/shapes/roundednodes.h"

#include <QtQuick/QQuickWindow>

namespace tolvane {

RoundedImage::RoundedImage(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void RoundedImage::setImage(const QImage &image)
{
    if (m_image.cacheKey() == image.cacheKey())
        return;
    m_image = image;
    setImplicitSize(image.width(), image.height());
    update();
    Q_EMIT imageChanged();
}

template <typename Value>
void RoundedImage::change(Value &member, const Value &value)
{
    if (member == value)
        return;
    member = value;
    update();
    Q_EMIT appearanceChanged();
}

void RoundedImage::setFillMode(FillMode mode)
{
    change(m_fillMode, mode);
}

void RoundedImage::setRadius(qreal radius)
{
    change(m_rounding.radius, radius);
}

void RoundedImage::setCorners(Corners corners)
{
    change(m_rounding.corners, static_cast<int>(corners));
}

void RoundedImage::setCircle(bool isCircle)
{
    change(m_rounding.isCircle, isCircle);
}

void RoundedImage::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void RoundedImage::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged)
        update();
}

QSGNode *RoundedImage::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (m_image.isNull() || size().isEmpty()) {
        delete node;
        return nullptr;
    }
    auto *rounded = node ? static_cast<RoundedNode *>(node) : RoundedNode::make(*window());
    rounded->update(m_image,
                    shapeFor(m_image.size(), boundingRect(),
                             static_cast<tolvane::FillMode>(m_fillMode), m_rounding),
                    window()->effectiveDevicePixelRatio());
    return rounded;
}

} // namespace tolvane
