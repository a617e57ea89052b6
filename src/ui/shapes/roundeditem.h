// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundednode.h"

#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// The base of items with rounded corners.
class RoundedItem : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS
    /// In device-independent pixels; never more than half of the shorter side.
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY appearanceChanged)
    /// The corners that are rounded; all by default.
    Q_PROPERTY(tolvane::RoundedItem::Corners corners READ corners WRITE setCorners NOTIFY
                   appearanceChanged)

public:
    enum Corner {
        TopLeft = 1,
        TopRight = 2,
        BottomLeft = 4,
        BottomRight = 8,
        AllCorners = TopLeft | TopRight | BottomLeft | BottomRight,
    };
    Q_DECLARE_FLAGS(Corners, Corner)
    Q_FLAG(Corners)

    qreal radius() const { return m_rounding.radius; }
    void setRadius(qreal radius) { change(m_rounding.radius, radius); }
    Corners corners() const { return Corners(m_rounding.corners); }
    void setCorners(Corners corners) { change(m_rounding.corners, int(corners)); }

Q_SIGNALS:
    void appearanceChanged();

protected:
    explicit RoundedItem(QQuickItem *parent);

    bool isCircle() const { return m_rounding.isCircle; }
    void setCircle(bool isCircle) { change(m_rounding.isCircle, isCircle); }
    qreal rim() const { return m_rounding.rim; }
    void setRim(qreal rim) { change(m_rounding.rim, rim); }

    template <typename Value>
    void change(Value &member, const Value &value)
    {
        if (member == value)
            return;
        member = value;
        update();
        Q_EMIT appearanceChanged();
    }

    /// Updates the node. Creates it if it is null, and deletes it if there is nothing to draw.
    /// @param picture the size of the picture; for a colour, the size of the item
    template <typename Fill>
    QSGNode *updateNode(QSGNode *node, const Fill &fill, const QSizeF &picture,
                        FillMode mode = FillMode::stretch)
    {
        if (picture.isEmpty() || size().isEmpty()) {
            delete node;
            return nullptr;
        }
        auto *rounded =
            node ? static_cast<RoundedNode<Fill> *>(node) : RoundedNode<Fill>::make(*window());
        rounded->update(fill, shapeFor(picture, boundingRect(), mode, m_rounding),
                        window()->effectiveDevicePixelRatio());
        return rounded;
    }

    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    Rounding m_rounding{.radius = 0, .corners = AllCorners, .isCircle = false, .rim = 0};
};

} // namespace tolvane
