// SPDX-License-Identifier: MIT
#include "ui/motion/springvalue.h"

#include <algorithm>
#include <cmath>

namespace tolvane {

namespace {

constexpr double minimumDampingFraction = 0.05;

/// The fraction of the initial amplitude that is too small to see: 0.1 of 1000 pixels.
constexpr double invisibleFraction = 0.0001;

} // namespace

SpringValue::SpringValue(QObject *parent)
    : QObject(parent)
{
    connect(&m_frameTicker, &QAbstractAnimation::stateChanged, this,
            &SpringValue::isRunningChanged);
}

void SpringValue::setTarget(double target)
{
    if (!m_isComplete) {
        jumpTo(target);
        return;
    }
    // Computed before the target changes, since displacements are relative to the target.
    const Spring::Motion now = motion();
    const double value = m_target + now.displacement;
    if (!replaceTarget(target))
        return;
    m_runningSpring = m_spring;
    m_start = {.displacement = value - m_target, .velocity = now.velocity};
    m_frameTicker.stop();
    m_frameTicker.start();
    Q_EMIT targetChanged();
}

void SpringValue::jumpTo(double value)
{
    const bool isChanged = replaceTarget(value);
    if (std::isfinite(value))
        comeToRest();
    if (isChanged)
        Q_EMIT targetChanged();
}

bool SpringValue::replaceTarget(double target)
{
    if (!std::isfinite(target) || target == m_target)
        return false;
    m_target = target;
    return true;
}

void SpringValue::setResponse(double response)
{
    if (response == m_spring.response)
        return;
    m_spring.response = response;
    Q_EMIT springChanged();
}

void SpringValue::setDampingFraction(double fraction)
{
    const double bounded = std::max(minimumDampingFraction, fraction);
    if (bounded == m_spring.dampingFraction)
        return;
    m_spring.dampingFraction = bounded;
    Q_EMIT springChanged();
}

Spring::Motion SpringValue::motion() const
{
    return isRunning() ? m_runningSpring.after(m_frameTicker.currentTime() / 1000.0, m_start)
                       : Spring::Motion();
}

void SpringValue::step()
{
    if (!isRunning())
        return;
    const Spring::Motion now = motion();
    if (m_runningSpring.amplitude(now) <= invisibleFraction * m_runningSpring.amplitude(m_start))
        comeToRest();
    else
        setValue(m_target + now.displacement);
}

void SpringValue::comeToRest()
{
    m_frameTicker.stop();
    setValue(m_target);
}

void SpringValue::setValue(double value)
{
    if (value == m_value)
        return;
    m_value = value;
    Q_EMIT valueChanged();
}

} // namespace tolvane
