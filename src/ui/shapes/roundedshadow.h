// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundeditem.h"

namespace tolvane {

/// The soft shadow of a rounded rectangle, around it and a little below its edge. What casts the
/// shadow covers the rest. The software renderer draws no shadow.
class RoundedShadow : public tolvane::RoundedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// How far the shadow reaches, in device-independent pixels.
    Q_PROPERTY(qreal reach READ reach WRITE setReach NOTIFY appearanceChanged)
    /// At the edge; it becomes transparent from there on.
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY appearanceChanged)

public:
    explicit RoundedShadow(QQuickItem *parent = nullptr)
        : RoundedItem(parent)
    {
    }

    qreal reach() const { return m_reach; }
    void setReach(qreal reach) { change(m_reach, reach); }
    const QColor &color() const { return m_color; }
    void setColor(const QColor &color) { change(m_color, color); }

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;

private:
    qreal m_reach = 0;
    QColor m_color;
};

} // namespace tolvane
