// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundedshape.h"

#include <QtGui/QColor>
#include <QtQuick/QSGNode>

class QQuickWindow;

namespace tolvane {

/// A scene graph node that draws a shape in one colour. Render thread, while the main thread is
/// blocked.
class RoundedRectangleNode : public QSGNode
{
public:
    /// Creates the kind of node that the window's renderer can draw.
    static RoundedRectangleNode *make(QQuickWindow &window);

    /// @param pixelRatio device pixels per device-independent pixel
    virtual void update(const RoundedShape &shape, const QColor &color, qreal pixelRatio) = 0;
};

} // namespace tolvane
