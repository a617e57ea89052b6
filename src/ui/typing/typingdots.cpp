// SPDX-License-Identifier: MIT
#include "ui/typing/typingdots.h"

#include "platform/platform.h"

#include <QtCore/QDateTime>

#include <cmath>
#include <numbers>

namespace tolvane {

double TypingDots::wave(int dot, double time) const
{
    const double omega = cyclesPerSecond * 2 * std::numbers::pi;
    return std::sin(omega * time + phaseOffsetPerDot * dot);
}

double TypingDots::offset(int dot, double time) const
{
    return -verticalAmplitude * wave(dot, time);
}

double TypingDots::scale(int dot, double time) const
{
    return baseScale + scaleAmplitude * rise(dot, time);
}

double TypingDots::opacity(int dot, double time) const
{
    return baseOpacity + opacityAmplitude * rise(dot, time);
}

double TypingDots::now() const
{
    constexpr qint64 epoch = 978'307'200'000;
    return double(platform().clock->now().toMSecsSinceEpoch() - epoch) / 1000;
}

} // namespace tolvane
