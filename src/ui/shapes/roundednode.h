// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundedshape.h"

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGNode>

namespace tolvane {

/// A scene graph node that draws a shape filled with a picture or a colour. Render thread, while
/// the main thread is blocked.
template <typename Fill>
class RoundedNode : public QSGNode
{
public:
    /// Creates a node of the type that the window's renderer can draw.
    static RoundedNode *make(QQuickWindow &window);

    /// @param pixelRatio device pixels per device-independent pixel
    virtual void update(const Fill &fill, const RoundedShape &shape, qreal pixelRatio) = 0;

protected:
    /// The software renderer has neither shaders nor triangles.
    static bool isSoftware(const QQuickWindow &window)
    {
        return !QSGRendererInterface::isApiRhiBased(window.rendererInterface()->graphicsApi());
    }
};

template <>
RoundedNode<QImage> *RoundedNode<QImage>::make(QQuickWindow &window);
template <>
RoundedNode<QColor> *RoundedNode<QColor>::make(QQuickWindow &window);

} // namespace tolvane
