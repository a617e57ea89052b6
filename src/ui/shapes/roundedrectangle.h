// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundeditem.h"

namespace tolvane {

/// A rounded rectangle in one colour. It looks like Qt Quick's, and is drawn in one batch with all
/// others and with rectangles without a radius.
class RoundedRectangle : public tolvane::RoundedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY appearanceChanged)
    /// The width of the outline, if only that is to be drawn.
    Q_PROPERTY(qreal rim READ rim WRITE setRim NOTIFY appearanceChanged)

public:
    explicit RoundedRectangle(QQuickItem *parent = nullptr)
        : RoundedItem(parent)
    {
    }

    const QColor &color() const { return m_color; }
    void setColor(const QColor &color) { change(m_color, color); }

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override
    {
        return updateNode(node, m_color, m_color.alpha() > 0 ? size() : QSizeF());
    }

private:
    QColor m_color = Qt::transparent;
};

} // namespace tolvane
