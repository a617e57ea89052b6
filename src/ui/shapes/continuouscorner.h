// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QPointF>

namespace tolvane {

/// The round corner of everything the library draws: one that bends little by little, where an arc
/// would begin to bend all at once.
///
/// It begins half a radius further from the corner than an arc does, and meets the arc in its
/// middle. In between it is a quarter of the superellipse x^n + y^n = 1, with the n that has it
/// meet there. Where the room does not allow for so much, n becomes smaller, down to 2: a circle
/// stays one.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ContinuousCorner
{
    /// How much of either side it takes.
    qreal extent = 0;
    /// n
    qreal exponent = 2;

    /// @param room half of the shorter side of what has the corner
    static ContinuousCorner of(qreal radius, qreal room);

    /// A place on the whole superellipse about the origin, and where outwards is there; both for an
    /// extent of 1. From 0 to a quarter of the circle it is one corner.
    QPointF at(qreal angle) const;
    QPointF outwards(qreal angle) const;
};

} // namespace tolvane
