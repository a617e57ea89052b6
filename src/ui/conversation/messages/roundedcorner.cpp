// SPDX-License-Identifier: MIT
#include "ui/conversation/messages/roundedcorner.h"

#include <QtGui/QPainter>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGNinePatchNode>

#include <cmath>

namespace tolvane {

namespace {

/// The smallest that has all corners whole; what is between them is stretched.
QImage picture(const QColor &color, qreal radius, int corners, qreal pixelRatio)
{
    const qreal side = 2 * std::ceil(radius) + 1;
    const QRectF bounds(0, 0, side, side);
    const RoundedShape shape = placed(bounds.size(), bounds, FillMode::stretch,
                                      {.radius = radius, .corners = corners, .isCircle = false});
    QImage image((bounds.size() * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape.outline(pixelRatio), color);
    return image;
}

} // namespace

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
    m_isPictureStale = true;
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
    const auto shorter = [](const QRectF &rect) { return std::min(rect.width(), rect.height()); };
    // Elsewhere the radius has the room that it takes.
    if (std::min(shorter(newGeometry), shorter(oldGeometry)) < 2 * m_radius)
        m_isPictureStale = true;
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void RoundedCorner::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged) {
        m_isPictureStale = true;
        update();
    }
}

QSGNode *RoundedCorner::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (size().isEmpty() || m_color.alpha() == 0) {
        delete node;
        return nullptr;
    }
    const bool isNew = !node;
    auto *patch = isNew ? window()->createNinePatchNode() : static_cast<QSGNinePatchNode *>(node);
    const qreal radius = std::clamp(m_radius, 0.0, std::min(width(), height()) / 2);
    if (isNew || m_isPictureStale) {
        const qreal pixelRatio = window()->effectiveDevicePixelRatio();
        patch->setTexture(window()->createTextureFromImage(
            picture(m_color, radius, static_cast<int>(m_corners), pixelRatio)));
        patch->setDevicePixelRatio(pixelRatio);
        m_isPictureStale = false;
    }
    const qreal padding = std::ceil(radius);
    patch->setPadding(padding, padding, padding, padding);
    patch->setBounds(boundingRect());
    patch->update();
    return patch;
}

} // namespace tolvane
