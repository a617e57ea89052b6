// SPDX-License-Identifier: MIT
#include "ui/viewer/imagestatetype.h"

namespace tolvane {

ImageStateType::ImageStateType(QObject *parent)
    : QObject(parent)
{
    m_scale.jumpTo(m_state.scale);
    for (SpringValue *value : {&m_scale, &m_x, &m_y})
        connect(value, &SpringValue::valueChanged, this, &ImageStateType::shownChanged);
}

template <typename Change>
void ImageStateType::change(Way way, Change change)
{
    const ImageState before = m_state;
    change(m_state);
    const auto show = way == Way::atOnce ? &SpringValue::jumpTo : &SpringValue::setTarget;
    (m_scale.*show)(m_state.scale);
    (m_x.*show)(m_state.offset.width());
    (m_y.*show)(m_state.offset.height());
    if (m_state != before)
        Q_EMIT changed();
}

void ImageStateType::setGeometry(const QSizeF &geometry)
{
    if (m_geometry == geometry)
        return;
    m_geometry = geometry;
    // A smaller viewport allows less panning: the picture must not stay out of reach.
    change(Way::atOnce, [&](ImageState &state) { state.clampOffset(m_geometry); });
    Q_EMIT geometryChanged();
}

void ImageStateType::pinchChanged(double value)
{
    change(Way::atOnce, [&](ImageState &state) { state.pinchChanged(value); });
}

void ImageStateType::pinchStepped(double value)
{
    change(Way::swinging, [&](ImageState &state) { state.pinchChanged(value); });
}

void ImageStateType::pinchEnded()
{
    change(Way::swinging, [&](ImageState &state) { state.pinchEnded(m_geometry); });
}

void ImageStateType::dragChanged(const QPointF &translation)
{
    change(Way::atOnce, [&](ImageState &state) { state.dragChanged(translation, m_geometry); });
}

void ImageStateType::dragEnded()
{
    change(Way::swinging, [&](ImageState &state) { state.dragEnded(m_geometry); });
}

void ImageStateType::doubleTapped()
{
    change(Way::swinging, [](ImageState &state) { state.doubleTapped(); });
}

void ImageStateType::reset()
{
    change(Way::swinging, [](ImageState &state) { state.reset(); });
}

void ImageStateType::dragWhole(Way way, const QPointF &translation)
{
    if (m_state.isDragging)
        return;
    change(way, [&](ImageState &state) {
        state.dragChanged(translation, m_geometry);
        state.dragEnded(m_geometry);
    });
}

} // namespace tolvane
