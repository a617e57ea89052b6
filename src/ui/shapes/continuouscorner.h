// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QPointF>

namespace tolvane {

/// The rounded corner of everything the library draws. Its curvature increases gradually, whereas
/// that of an arc begins abruptly.
///
/// It begins half a radius further from the corner than an arc of that radius, and meets the arc in
/// the middle. It is a quarter of the superellipse x^n + y^n = 1, with the n for which it meets the
/// arc there. If there is not enough room for that, n is smaller, down to 2: a circle stays a
/// circle.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ContinuousCorner
{
    /// The length of either side that the curve replaces.
    qreal extent = 0;
    /// n
    qreal exponent = 2;

    /// @param room half of the shorter side of the shape that has the corner
    static ContinuousCorner forRadius(qreal radius, qreal room);

    /// A point of the superellipse around the origin, and the outward normal there; both for an
    /// extent of 1. Angles from 0 to a quarter of the circle make one corner.
    QPointF at(qreal angle) const;
    QPointF outwards(qreal angle) const;
};

} // namespace tolvane
