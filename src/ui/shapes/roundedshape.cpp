// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedshape.h"

#include <QtGui/QPolygonF>

#include <algorithm>

namespace tolvane {

namespace {

QRectF centered(const QSizeF &size, const QRectF &bounds)
{
    QRectF rect(QPointF(), size);
    rect.moveCenter(bounds.center());
    return rect;
}

std::array<qreal, 4> radiiIn(const QRectF &target, const Rounding &rounding)
{
    const qreal most = std::min(target.width(), target.height()) / 2;
    if (rounding.isCircle)
        return {most, most, most, most};
    std::array<qreal, 4> radii{};
    for (std::size_t corner = 0; corner < radii.size(); ++corner) {
        if (rounding.corners & (1 << corner))
            radii.at(corner) = std::clamp(rounding.radius, 0.0, most);
    }
    return radii;
}

/// Turned clockwise around the origin.
QPointF turned(const QPointF &point, int quarters)
{
    constexpr std::array<int, 4> cosines = {1, 0, -1, 0};
    const int cosine = cosines.at(std::size_t(quarters));
    const int sine = cosines.at(std::size_t(quarters + 3) % 4);
    return {cosine * point.x() - sine * point.y(), sine * point.x() + cosine * point.y()};
}

} // namespace

bool RoundedShape::isRounded() const
{
    return std::ranges::any_of(radii, [](qreal radius) { return radius > 0; });
}

ContinuousCorner RoundedShape::corner(std::size_t which) const
{
    return ContinuousCorner::forRadius(radii.at(which),
                                       std::min(target.width(), target.height()) / 2);
}

std::vector<CurvePoint> RoundedShape::curve(const RectangleCorner &corner, qreal tolerance) const
{
    const ContinuousCorner shape = this->corner(corner.index);
    if (shape.extent <= 0)
        return {{.position = corner.direction, .normal = corner.direction}};
    std::vector<CurvePoint> points = shape.curve(shape.stepsFor(tolerance));
    for (CurvePoint &point : points) {
        point = {.position = turned(point.position, corner.quarter),
                 .normal = turned(point.normal, corner.quarter)};
    }
    return points;
}

std::vector<QPointF> RoundedShape::points(qreal inset) const
{
    constexpr qreal tolerance = 1.0 / 16;
    std::vector<QPointF> points;
    for (const RectangleCorner &corner : rectangleCorners) {
        const qreal extent = this->corner(corner.index).extent;
        const QPointF center = corner.positionIn(target) - extent * corner.direction;
        for (const auto &[position, normal] : curve(corner, tolerance))
            points.push_back(center + extent * position - inset * normal);
    }
    return points;
}

QPainterPath RoundedShape::outline(qreal factor) const
{
    constexpr qreal tolerance = 0.02;
    QPolygonF outline;
    QPolygonF inner;
    const QRectF rect(QPointF(), target.size());
    for (const RectangleCorner &corner : rectangleCorners) {
        const qreal extent = this->corner(corner.index).extent;
        const QPointF center = corner.positionIn(rect) - extent * corner.direction;
        for (const CurvePoint &point : curve(corner, tolerance / factor)) {
            outline += (center + extent * point.position) * factor;
            inner += (center + extent * point.position - rim * point.normal) * factor;
        }
    }
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    if (rim > 0) {
        path.addPolygon(inner);
        path.closeSubpath();
    }
    return path;
}

RoundedShape shapeFor(const QSizeF &picture, const QRectF &bounds, FillMode mode,
                      const Rounding &rounding)
{
    RoundedShape shape = {.target = bounds, .source = QRectF(QPointF(), picture)};
    if (mode == FillMode::fit)
        shape.target = centered(picture.scaled(bounds.size(), Qt::KeepAspectRatio), bounds);
    if (mode == FillMode::fill)
        shape.source = centered(bounds.size().scaled(picture, Qt::KeepAspectRatio), shape.source);
    if (rounding.isCircle) {
        const QSizeF whole = shape.target.size();
        const qreal side = std::min(whole.width(), whole.height());
        shape.target = centered(QSizeF(side, side), shape.target);
        shape.source = centered(QSizeF(shape.source.width() * side / whole.width(),
                                       shape.source.height() * side / whole.height()),
                                shape.source);
    }
    shape.radii = radiiIn(shape.target, rounding);
    shape.rim = rounding.rim;
    return shape;
}

} // namespace tolvane
