// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/shapes/continuouscorner.h"

#include <QtCore/QRectF>
#include <QtGui/QPainterPath>

#include <array>

namespace tolvane {

/// Where a picture is drawn, which part of it is drawn, and how its corners are rounded. All in the
/// coordinates of the item, except for `source`, which is in pixels of the picture.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT RoundedShape
{
    QRectF target;
    QRectF source;
    /// Top left, top right, bottom left, bottom right.
    std::array<qreal, 4> radii{};

    bool isRounded() const;
    /// One of the corners, in the order of the radii.
    ContinuousCorner corner(std::size_t which) const;
    /// The outline with its top left at the origin, scaled by the factor.
    QPainterPath outline(qreal factor) const;

    bool operator==(const RoundedShape &) const = default;
};

/// How a picture is fitted into its bounds. Fit and Fill keep its aspect ratio.
enum class FillMode { stretch, fit, fill };

/// Which corners are rounded, as a mask (1 top left, 2 top right, 4 bottom left, 8 bottom right),
/// and their radius, which is limited to half of the shorter side.
struct Rounding
{
    qreal radius = 0;
    int corners = 0;
    /// Draws the largest circle in the middle instead.
    bool isCircle = false;
};

/// @param bounds the available rectangle
/// @param picture the size of the picture in pixels, not empty
TOLVANE_VIEWS_AUTOTEST_EXPORT RoundedShape shapeFor(const QSizeF &picture, const QRectF &bounds,
                                                    FillMode mode, const Rounding &rounding);

} // namespace tolvane
