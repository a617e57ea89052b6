// SPDX-License-Identifier: MIT
#include "ui/motion/spring.h"

#include <cmath>
#include <numbers>

namespace tolvane {

namespace {

/// The two motions that all others are made of: one that begins at a distance of 1 without speed,
/// and one that begins at rest with a speed of 1, less the part of the damping in it.
struct Basis
{
    double even;
    double odd;
};

Basis basisAt(double seconds, double frequency, double dampingFraction)
{
    // So near to the critical damping, the difference is lost in rounding.
    constexpr double nearlyCritical = 1e-6;
    const double decay = dampingFraction * frequency;
    if (std::abs(dampingFraction - 1) < nearlyCritical) {
        const double left = std::exp(-decay * seconds);
        return {left, left * seconds};
    }
    const double split = frequency * std::sqrt(std::abs(1 - dampingFraction * dampingFraction));
    if (dampingFraction < 1) {
        const double left = std::exp(-decay * seconds);
        return {left * std::cos(split * seconds), left * std::sin(split * seconds) / split};
    }
    // Not by hyperbolic functions, which overflow long before this does.
    const double slow = std::exp((split - decay) * seconds);
    const double fast = std::exp((-split - decay) * seconds);
    return {(slow + fast) / 2, (slow - fast) / (2 * split)};
}

} // namespace

double Spring::stiffness() const
{
    const double frequency = 2 * std::numbers::pi / response;
    return frequency * frequency;
}

double Spring::damping() const
{
    return 4 * std::numbers::pi * dampingFraction / response;
}

Spring::Motion Spring::after(double seconds, const Motion &start) const
{
    if (!(response > 0))
        return {};
    const auto [even, odd] = basisAt(seconds, std::sqrt(stiffness()), dampingFraction);
    const auto &[displacement, velocity] = start;
    const double decay = damping() / 2;
    return {.displacement = displacement * even + (velocity + decay * displacement) * odd,
            .velocity = velocity * even - (stiffness() * displacement + decay * velocity) * odd};
}

double Spring::reach(const Motion &motion) const
{
    if (!(response > 0))
        return 0;
    return std::hypot(motion.displacement, motion.velocity / std::sqrt(stiffness()));
}

} // namespace tolvane
