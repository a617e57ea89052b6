// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundeditem.h"

namespace tolvane {

/// Clips its children to a rounded rectangle, without a texture of them. The edge is not
/// antialiased: it runs in the middle of an outline, one pixel wide around the item, which has to
/// be drawn above it. Use no radius with the software renderer, which clips to rectangles only.
class RoundedClip : public tolvane::RoundedItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit RoundedClip(QQuickItem *parent = nullptr)
        : RoundedItem(parent)
    {
        setClip(true);
    }

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;
};

} // namespace tolvane
