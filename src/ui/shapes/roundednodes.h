// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundedshape.h"

#include <QtGui/QImage>
#include <QtQuick/QSGNode>

class QQuickWindow;

namespace tolvane {

/// The scene graph node that draws a picture. Render thread, while the main thread is blocked.
class RoundedNode : public QSGNode
{
public:
    /// Creates the kind of node that the window's renderer can draw.
    static RoundedNode *make(QQuickWindow &window);

    /// @param pixelRatio the window's device pixel ratio
    virtual void update(const QImage &image, const RoundedShape &shape, qreal pixelRatio) = 0;
};

} // namespace tolvane
