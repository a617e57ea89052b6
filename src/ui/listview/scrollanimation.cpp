// SPDX-License-Identifier: MIT
#include "ui/listview/scrollanimation.h"

namespace tolvane {

ScrollAnimation::ScrollAnimation(std::function<void()> moved)
{
    m_animation.setStartValue(1.0);
    m_animation.setEndValue(0.0);
    m_animation.setEasingCurve(QEasingCurve::InOutQuad);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, &m_animation, moved);
    QObject::connect(&m_animation, &QVariantAnimation::finished, &m_animation, moved);
}

void ScrollAnimation::setTarget(Kind kind, int duration, double position)
{
    stop();
    m_kind = kind;
    m_position = position;
    m_animation.setDuration(duration);
    m_isActive = true;
}

void ScrollAnimation::stop()
{
    m_isActive = false;
    m_hasBegun = false;
    m_animation.stop();
}

void ScrollAnimation::begin(double distance)
{
    m_distance = distance;
    m_hasBegun = true;
    m_animation.start();
}

double ScrollAnimation::distance() const
{
    return m_distance * (isFinished() ? 0 : m_animation.currentValue().toDouble());
}

bool ScrollAnimation::isFinished() const
{
    return m_hasBegun && m_animation.state() == QAbstractAnimation::Stopped;
}

} // namespace tolvane
