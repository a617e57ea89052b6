// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundedshape.h"

#include <QtGui/QImage>
#include <QtQuick/QSGNode>

class QQuickWindow;

namespace tolvane {

/// What draws a picture in the scene of a window. Render thread, while the main thread waits.
class RoundedNode : public QSGNode
{
public:
    /// The kind of node that the window's renderer can draw.
    static RoundedNode *make(QQuickWindow &window);

    /// @param pixelRatio pixels of the screen to the point
    virtual void update(const QImage &image, const RoundedShape &shape, qreal pixelRatio) = 0;
};

} // namespace tolvane
