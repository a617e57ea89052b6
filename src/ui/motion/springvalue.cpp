// SPDX-License-Identifier: MIT
#include "ui/motion/springvalue.h"

#include <algorithm>
#include <cmath>

namespace tolvane {

namespace {

constexpr double leastDampingFraction = 0.05;

/// The part of the initial amplitude that is too small to see: a tenth of a pixel in a thousand.
constexpr double atRest = 0.0001;

} // namespace

SpringValue::SpringValue(QObject *parent)
    : QObject(parent)
{
    connect(&m_frames, &QAbstractAnimation::stateChanged, this, &SpringValue::isRunningChanged);
}

void SpringValue::setTarget(double target)
{
    if (!m_isComplete) {
        jumpTo(target);
        return;
    }
    // Computed before the target changes, since displacements are relative to the target.
    const Spring::Motion now = motion();
    const double place = m_target + now.displacement;
    if (!replaceTarget(target))
        return;
    m_running = m_spring;
    m_start = {.displacement = place - m_target, .velocity = now.velocity};
    m_frames.stop();
    m_frames.start();
    Q_EMIT targetChanged();
}

void SpringValue::jumpTo(double value)
{
    const bool isOther = replaceTarget(value);
    if (std::isfinite(value))
        rest();
    if (isOther)
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
    const double kept = std::max(leastDampingFraction, fraction);
    if (kept == m_spring.dampingFraction)
        return;
    m_spring.dampingFraction = kept;
    Q_EMIT springChanged();
}

Spring::Motion SpringValue::motion() const
{
    return isRunning() ? m_running.after(m_frames.currentTime() / 1000.0, m_start)
                       : Spring::Motion();
}

void SpringValue::step()
{
    if (!isRunning())
        return;
    const Spring::Motion now = motion();
    if (m_running.reach(now) <= atRest * m_running.reach(m_start))
        rest();
    else
        setValue(m_target + now.displacement);
}

void SpringValue::rest()
{
    m_frames.stop();
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
