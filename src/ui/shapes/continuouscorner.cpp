// SPDX-License-Identifier: MIT
#include "ui/shapes/continuouscorner.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tolvane {

namespace {

constexpr qreal extentPerRadius = 1.5;

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

int ContinuousCorner::stepsFor(qreal tolerance) const
{
    // The distance between the curve and its chords is about 0.32 / steps^2 for an extent of 1.
    return std::max(1, int(std::ceil(std::sqrt(0.32 * extent / tolerance))));
}

std::vector<CurvePoint> ContinuousCorner::curve(int steps) const
{
    // For the angle a, x is cos(a)^(2/n), and y is x of the angle that mirrors it. The gradient is
    // x^(n-1), which is cos(a)^2 / x.
    const auto count = std::size_t(steps) + 1;
    std::vector<qreal> cosines(count);
    std::vector<qreal> positions(count);
    for (std::size_t at = 0; at < count; ++at) {
        cosines[at] = std::cos(qreal(at) / steps * std::numbers::pi / 2);
        positions[at] = std::pow(cosines[at], 2 / exponent);
    }
    std::vector<CurvePoint> points(count);
    for (std::size_t at = 0; at < count; ++at) {
        const std::size_t mirrored = count - 1 - at;
        const QPointF position(positions[at], positions[mirrored]);
        const QPointF gradient(cosines[at] * cosines[at] / position.x(),
                               cosines[mirrored] * cosines[mirrored] / position.y());
        points[at] = {.position = position,
                      .normal = gradient / std::hypot(gradient.x(), gradient.y())};
    }
    return points;
}

} // namespace tolvane
