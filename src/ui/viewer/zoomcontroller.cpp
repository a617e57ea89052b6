// SPDX-License-Identifier: MIT
#include "ui/viewer/zoomcontroller.h"

namespace tolvane {

ZoomController::ZoomController(QObject *parent)
    : QObject(parent)
{
    m_scale.jumpTo(m_state.scale);
    for (SpringValue *value : {&m_scale, &m_x, &m_y})
        connect(value, &SpringValue::valueChanged, this, &ZoomController::shownChanged);
}

template <typename Change>
void ZoomController::change(Motion motion, Change change)
{
    const ImageState before = m_state;
    change(m_state);
    const auto show = motion == Motion::immediate ? &SpringValue::jumpTo : &SpringValue::setTarget;
    (m_scale.*show)(m_state.scale);
    (m_x.*show)(m_state.offset.width());
    (m_y.*show)(m_state.offset.height());
    if (m_state != before)
        Q_EMIT changed();
}

void ZoomController::setGeometry(const QSizeF &geometry)
{
    if (m_geometry == geometry)
        return;
    m_geometry = geometry;
    // A smaller viewport allows less panning: the picture must not stay out of reach.
    change(Motion::immediate, [&](ImageState &state) { state.clampOffset(m_geometry); });
    Q_EMIT geometryChanged();
}

void ZoomController::pinchChanged(double value)
{
    change(Motion::immediate, [&](ImageState &state) { state.pinchChanged(value); });
}

void ZoomController::pinchAnimated(double value)
{
    change(Motion::animated, [&](ImageState &state) { state.pinchChanged(value); });
}

void ZoomController::pinchEnded()
{
    change(Motion::animated, [&](ImageState &state) { state.pinchEnded(m_geometry); });
}

void ZoomController::dragChanged(const QPointF &translation)
{
    change(Motion::immediate,
           [&](ImageState &state) { state.dragChanged(translation, m_geometry); });
}

void ZoomController::dragEnded()
{
    change(Motion::animated, [&](ImageState &state) { state.dragEnded(m_geometry); });
}

void ZoomController::doubleTapped()
{
    change(Motion::animated, [](ImageState &state) { state.doubleTapped(); });
}

void ZoomController::reset()
{
    change(Motion::animated, [](ImageState &state) { state.reset(); });
}

void ZoomController::resetImmediately()
{
    change(Motion::immediate, [](ImageState &state) { state = {}; });
}

void ZoomController::applyDrag(Motion motion, const QPointF &translation)
{
    if (m_state.isDragging)
        return;
    change(motion, [&](ImageState &state) {
        state.dragChanged(translation, m_geometry);
        state.dragEnded(m_geometry);
    });
}

} // namespace tolvane
