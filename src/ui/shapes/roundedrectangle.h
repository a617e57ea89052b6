// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundeditem.h"

namespace tolvane {

/// A rounded rectangle in one colour.
class RoundedRectangle : public tolvane::RoundedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY appearanceChanged)

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
