// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundedshape.h"

#include <QtGui/QColor>
#include <QtQuick/QSGNode>

class QQuickWindow;

namespace tolvane {

/// What draws a shape in one colour in the scene of a window. Render thread, while the main thread
/// waits.
class RoundedCornerNode : public QSGNode
{
public:
    /// The kind of node that the window's renderer can draw.
    static RoundedCornerNode *make(QQuickWindow &window);

    /// @param pixelRatio pixels of the screen to the point
    virtual void update(const RoundedShape &shape, const QColor &color, qreal pixelRatio) = 0;
};

} // namespace tolvane
