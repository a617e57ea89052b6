// SPDX-License-Identifier: MIT
#include "ui/motion/spring.h"

#include <cmath>
#include <numbers>

namespace tolvane {

namespace {

/// Two solutions whose linear combinations are all motions. `even` starts at a displacement of 1
/// with a velocity of -decay, `odd` at a displacement of 0 with a velocity of 1.
struct Basis
{
    double even;
    double odd;
};

Basis basisAt(double seconds, double frequency, double dampingFraction)
{
    // So close to critical damping, the other formulas would lose all precision.
    constexpr double nearlyCritical = 1e-6;
    const double decay = dampingFraction * frequency;
    if (std::abs(dampingFraction - 1) < nearlyCritical) {
        const double decayed = std::exp(-decay * seconds);
        return {decayed, decayed * seconds};
    }
    const double split = frequency * std::sqrt(std::abs(1 - dampingFraction * dampingFraction));
    if (dampingFraction < 1) {
        const double decayed = std::exp(-decay * seconds);
        return {decayed * std::cos(split * seconds), decayed * std::sin(split * seconds) / split};
    }
    // Not with hyperbolic functions, which overflow much earlier.
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

double Spring::amplitude(const Motion &motion) const
{
    if (!(response > 0))
        return 0;
    return std::hypot(motion.displacement, motion.velocity / std::sqrt(stiffness()));
}

} // namespace tolvane
