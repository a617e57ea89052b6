// SPDX-License-Identifier: MIT
#include "ui/listview/scrollgoal.h"

namespace tolvane {

ScrollGoal::ScrollGoal(std::function<void()> moved)
{
    m_motion.setStartValue(1.0);
    m_motion.setEndValue(0.0);
    m_motion.setEasingCurve(QEasingCurve::InOutQuad);
    QObject::connect(&m_motion, &QVariantAnimation::valueChanged, &m_motion, moved);
    QObject::connect(&m_motion, &QVariantAnimation::finished, &m_motion, moved);
}

void ScrollGoal::aim(Kind kind, int duration, double place)
{
    stop();
    m_kind = kind;
    m_place = place;
    m_motion.setDuration(duration);
    m_isAimed = true;
}

void ScrollGoal::stop()
{
    m_isAimed = false;
    m_hasBegun = false;
    m_motion.stop();
}

void ScrollGoal::begin(double distance)
{
    m_distance = distance;
    m_hasBegun = true;
    m_motion.start();
}

double ScrollGoal::distance() const
{
    return m_distance * (hasArrived() ? 0 : m_motion.currentValue().toDouble());
}

bool ScrollGoal::hasArrived() const
{
    return m_hasBegun && m_motion.state() == QAbstractAnimation::Stopped;
}

} // namespace tolvane
