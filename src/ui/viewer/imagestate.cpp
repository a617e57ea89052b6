// SPDX-License-Identifier: MIT
#include "ui/viewer/imagestate.h"

#include <algorithm>
#include <cmath>

namespace tolvane {

namespace {

QSizeF limited(const QSizeF &offset, const QSizeF &most)
{
    return {std::clamp(offset.width(), -most.width(), most.width()),
            std::clamp(offset.height(), -most.height(), most.height())};
}

} // namespace

QSizeF ImageState::maxOffset(const QSizeF &geometry) const
{
    return (geometry * (scale - 1) * 0.5).expandedTo({0, 0});
}

void ImageState::clampOffset(const QSizeF &geometry)
{
    offset = limited(offset, maxOffset(geometry));
    lastOffset = offset;
}

void ImageState::pinchChanged(double value)
{
    if (!std::isfinite(value) || value <= 0)
        return;
    const bool hasBegun = lastScale != 1;
    if (!hasBegun && std::abs(value - 1) < minPinchChange)
        return;
    const double delta = value / lastScale;
    lastScale = value;
    scale = std::clamp(scale * delta, minScale, maxScale);
}

void ImageState::pinchEnded(const QSizeF &geometry)
{
    lastScale = 1;
    if (scale < snapBackScale)
        reset();
    scale = std::min(scale, maxScale);
    clampOffset(geometry);
}

void ImageState::dragChanged(const QPointF &translation, const QSizeF &geometry)
{
    if (scale <= 1)
        return;
    isDragging = true;
    offset = limited(lastOffset + QSizeF(translation.x(), translation.y()), maxOffset(geometry));
}

void ImageState::dragEnded(const QSizeF &geometry)
{
    isDragging = false;
    clampOffset(geometry);
}

void ImageState::doubleTapped()
{
    if (scale > 1)
        reset();
    else
        scale = doubleTapScale;
}

void ImageState::reset()
{
    scale = 1;
    offset = lastOffset = {0, 0};
}

} // namespace tolvane
