// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QPointF>

#include <vector>

namespace tolvane {

/// A point on the curve of a corner, and the outward unit normal there. The curve is around the
/// origin with an extent of 1.
struct CurvePoint
{
    QPointF position;
    QPointF normal;
};

/// The corner of all rounded shapes in the library. Unlike the curvature of an arc, its curvature
/// increases gradually.
///
/// It is a quarter of the superellipse x^n + y^n = 1. It begins half a radius further from the
/// corner than an arc with that radius; n is chosen so that both meet in the middle. In a smaller
/// shape n is smaller, down to 2, so that a circle stays a circle.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ContinuousCorner
{
    /// How much of either side the curve replaces.
    qreal extent = 0;
    /// n
    qreal exponent = 2;

    /// @param room half of the shorter side of the shape that has the corner
    static ContinuousCorner forRadius(qreal radius, qreal room);

    /// The number of chords that are closer to the curve than the tolerance.
    int stepsFor(qreal tolerance) const;
    /// The ends of the chords, clockwise, for the corner at the lower right.
    std::vector<CurvePoint> curve(int steps) const;
};

} // namespace tolvane
