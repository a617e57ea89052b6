// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QPointF>
#include <QtCore/QSizeF>

namespace tolvane {

/// How a picture is zoomed and panned, by gestures. Knows no window: it is told what a gesture has
/// come to, and what room the picture has. Lengths are in points, of the room and not of the
/// picture; zooming goes about the middle.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ImageState
{
    static constexpr double smallestScale = 0.5;
    static constexpr double greatestScale = 4;
    /// A pinch that ends below it goes back to where the picture came from.
    static constexpr double snapBackScale = 0.9;
    static constexpr double doubleTapScale = 2;
    /// A pinch of less is none yet.
    static constexpr double leastPinchChange = 0.01;
    /// A drag of less is none yet, in points.
    static constexpr double leastDragDistance = 10;

    double scale = 1;
    double lastScale = 1;
    QSizeF offset = {0, 0};
    QSizeF lastOffset = {0, 0};
    bool isDragging = false;

    /// How far the picture may go from the middle, either way. Nowhere unless it is zoomed in.
    QSizeF maxOffset(const QSizeF &geometry) const;
    void clampOffset(const QSizeF &geometry);

    /// @param value by how much the fingers have spread since the gesture began, which is 1 there;
    ///              what is no positive number is not heeded
    void pinchChanged(double value);
    void pinchEnded(const QSizeF &geometry);

    /// @param translation since the gesture began
    void dragChanged(const QPointF &translation, const QSizeF &geometry);
    void dragEnded(const QSizeF &geometry);

    void doubleTapped();
    /// Back to the whole picture in the middle.
    void reset();

    bool operator==(const ImageState &) const = default;
};

} // namespace tolvane
