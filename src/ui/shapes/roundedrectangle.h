// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundedimage.h"

#include <QtGui/QColor>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// A rectangle in one colour. The corners in a mask are rounded, the others are square.
class RoundedRectangle : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY appearanceChanged)
    /// In device-independent pixels; never more than half of the shorter side.
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY appearanceChanged)
    /// TopLeft 1, TopRight 2, BottomLeft 4, BottomRight 8.
    Q_PROPERTY(tolvane::RoundedImage::Corners corners READ corners WRITE setCorners NOTIFY
                   appearanceChanged)

public:
    explicit RoundedRectangle(QQuickItem *parent = nullptr);

    const QColor &color() const { return m_color; }
    void setColor(const QColor &color);
    qreal radius() const { return m_radius; }
    void setRadius(qreal radius);
    RoundedImage::Corners corners() const { return m_corners; }
    void setCorners(RoundedImage::Corners corners);

Q_SIGNALS:
    void appearanceChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    template <typename Value>
    void change(Value &member, const Value &value);

    QColor m_color = Qt::transparent;
    qreal m_radius = 0;
    RoundedImage::Corners m_corners = RoundedImage::AllCorners;
};

} // namespace tolvane
