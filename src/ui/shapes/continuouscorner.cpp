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

QPointF ContinuousCorner::pointAt(qreal angle) const
{
    return {power(std::cos(angle), 2 / exponent), power(std::sin(angle), 2 / exponent)};
}

QPointF ContinuousCorner::normalAt(qreal angle) const
{
    const QPointF point = pointAt(angle);
    const QPointF gradient(power(point.x(), exponent - 1), power(point.y(), exponent - 1));
    return gradient / std::hypot(gradient.x(), gradient.y());
}

} // namespace tolvane
