// SPDX-License-Identifier: MIT
#include "ui/images/roundedshape.h"

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

} // namespace

bool RoundedShape::isRounded() const
{
    return std::ranges::any_of(radii, [](qreal radius) { return radius > 0; });
}

QPainterPath RoundedShape::outline(qreal factor) const
{
    const QRectF rect(QPointF(), target.size() * factor);
    const auto [topLeft, topRight, bottomLeft, bottomRight] = radii;
    QPainterPath path(rect.topRight() + QPointF(0, topRight * factor));
    // A radius of 0 leaves the corner as it is, for the line that goes on from there.
    const auto addCorner = [&](qreal radius, QPointF corner, qreal startAngle) {
        const qreal side = 2 * radius * factor;
        QRectF box(corner, QSizeF(side, side));
        box.translate(corner.x() > 0 ? -side : 0, corner.y() > 0 ? -side : 0);
        if (side > 0)
            path.arcTo(box, startAngle, 90);
        else
            path.lineTo(corner);
    };
    addCorner(topRight, rect.topRight(), 0);
    addCorner(topLeft, rect.topLeft(), 90);
    addCorner(bottomLeft, rect.bottomLeft(), 180);
    addCorner(bottomRight, rect.bottomRight(), 270);
    path.closeSubpath();
    return path;
}

RoundedShape placed(const QSizeF &picture, const QRectF &bounds, FillMode mode,
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
    return shape;
}

} // namespace tolvane
