// SPDX-License-Identifier: MIT
#include "ui/shapes/continuouscorner.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tolvane {

namespace {

constexpr qreal extentPerRadius = 1.5;

qreal power(qreal base, qreal exponent)
{
    return std::copysign(std::pow(std::abs(base), exponent), base);
}

} // namespace

ContinuousCorner ContinuousCorner::forRadius(qreal radius, qreal room)
{
    const qreal used = std::min(radius, room);
    if (!(used > 0))
        return {};
    const qreal extent = std::min(extentPerRadius * used, room);
    // The distance of the arc's middle from either side.
    const qreal middle = used * (1 - std::numbers::sqrt2 / 2);
    return {.extent = extent, .exponent = -1 / std::log2(1 - middle / extent)};
}

QPointF ContinuousCorner::at(qreal angle) const
{
    return {power(std::cos(angle), 2 / exponent), power(std::sin(angle), 2 / exponent)};
}

QPointF ContinuousCorner::outwards(qreal angle) const
{
    const QPointF place = at(angle);
    const QPointF slope(power(place.x(), exponent - 1), power(place.y(), exponent - 1));
    return slope / std::hypot(slope.x(), slope.y());
}

} // namespace tolvane
