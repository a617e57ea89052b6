// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/shapes/continuouscorner.h"

#include <QtCore/QRectF>
#include <QtGui/QPainterPath>

#include <array>
#include <cstddef>
#include <vector>

namespace tolvane {

/// A corner of a rectangle.
struct RectangleCorner
{
    /// In the order of RoundedShape::radii.
    std::size_t index;
    /// From the centre of the rectangle: -1 or 1 on either axis.
    QPointF direction;
    /// The quarter of a circle that rounds it, clockwise from the lower right.
    int quarter;

    QPointF positionIn(const QRectF &rect) const
    {
        return {direction.x() < 0 ? rect.left() : rect.right(),
                direction.y() < 0 ? rect.top() : rect.bottom()};
    }
};

/// Clockwise from the top left.
inline constexpr std::array rectangleCorners = {
    RectangleCorner{.index = 0, .direction = {-1, -1}, .quarter = 2},
    RectangleCorner{.index = 1, .direction = {1, -1}, .quarter = 3},
    RectangleCorner{.index = 3, .direction = {1, 1}, .quarter = 0},
    RectangleCorner{.index = 2, .direction = {-1, 1}, .quarter = 1}};

/// A part of a picture (`source`, in pixels of the picture), and the rounded rectangle that shows
/// it (in coordinates of the item).
struct TOLVANE_VIEWS_AUTOTEST_EXPORT RoundedShape
{
    QRectF target;
    QRectF source;
    /// Top left, top right, bottom left, bottom right.
    std::array<qreal, 4> radii{};
    /// The width of the outline if only that is drawn, else 0.
    qreal rim = 0;

    bool isRounded() const;
    /// One of the corners, in the order of the radii.
    ContinuousCorner corner(std::size_t which) const;
    /// The points of the corner's curve, clockwise; a single one if the corner is not rounded.
    /// @param tolerance how far it may differ from the curve, in the coordinates of the item
    std::vector<CurvePoint> curve(const RectangleCorner &corner, qreal tolerance) const;
    /// Points on the outline, or inside it at the distance `inset`, clockwise from the top left.
    std::vector<QPointF> points(qreal inset) const;
    /// The outline, or the area of the rim, with its top left at the origin, scaled by the factor.
    QPainterPath outline(qreal factor) const;

    bool operator==(const RoundedShape &) const = default;
};

/// How a picture is fitted into its bounds. `fit` and `fill` keep its aspect ratio.
enum class FillMode { stretch, fit, fill };

struct Rounding
{
    /// Limited to half of the shorter side.
    qreal radius = 0;
    /// The mask of the rounded corners: 1 top left, 2 top right, 4 bottom left, 8 bottom right.
    int corners = 0;
    /// Draws the largest circle in the middle instead.
    bool isCircle = false;
    /// See RoundedShape.
    qreal rim = 0;
};

/// @param bounds the available rectangle
/// @param picture the size of the picture in pixels, not empty
TOLVANE_VIEWS_AUTOTEST_EXPORT RoundedShape shapeFor(const QSizeF &picture, const QRectF &bounds,
                                                    FillMode mode, const Rounding &rounding);

} // namespace tolvane
