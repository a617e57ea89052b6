// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QPointF>
#include <QtCore/QSizeF>

namespace tolvane {

/// Zoom and pan of a picture, changed by gestures. Does not depend on a window: callers pass the
/// state of a gesture and the size of the viewport. Lengths are in device-independent pixels of the
/// viewport, not in pixels of the picture. The centre of the viewport is the origin of zooming.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ImageState
{
    static constexpr double minScale = 0.5;
    static constexpr double maxScale = 4;
    /// A pinch that ends below this scale resets zoom and pan.
    static constexpr double snapBackScale = 0.9;
    static constexpr double doubleTapScale = 2;
    /// Smaller changes do not begin a pinch.
    static constexpr double minPinchChange = 0.01;
    /// Shorter movements do not begin a drag. In device-independent pixels.
    static constexpr double minDragDistance = 10;

    double scale = 1;
    double lastScale = 1;
    QSizeF offset = {0, 0};
    QSizeF lastOffset = {0, 0};
    bool isDragging = false;

    /// How far the picture may be moved from the centre, either way. 0 unless it is zoomed in.
    QSizeF maxOffset(const QSizeF &geometry) const;
    void clampOffset(const QSizeF &geometry);

    /// @param value the scale relative to the beginning of the gesture; values that are not
    /// positive
    ///              numbers are ignored
    void pinchChanged(double value);
    void pinchEnded(const QSizeF &geometry);

    /// @param translation since the gesture began
    void dragChanged(const QPointF &translation, const QSizeF &geometry);
    void dragEnded(const QSizeF &geometry);

    void doubleTapped();
    /// Shows the whole picture again, centred.
    void reset();

    bool operator==(const ImageState &) const = default;
};

} // namespace tolvane
