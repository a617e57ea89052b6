// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

namespace tolvane {

/// The motion of a damped spring with a mass of 1. It is computed from the start for any time, so
/// that late or dropped frames do not change it. Uses no window.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT Spring
{
    /// The distance from rest, and the velocity per second.
    struct Motion
    {
        double displacement = 0;
        double velocity = 0;
    };

    /// The period without damping, in seconds. At 0 or less, the spring is at rest at once.
    double response = 0.35;
    /// At 0 it oscillates for ever, below 1 it overshoots, from 1 on it does not oscillate.
    double dampingFraction = 0.75;

    double stiffness() const;
    double damping() const;

    /// The motion after that many seconds, which must not be negative.
    Motion after(double seconds, const Motion &start) const;

    /// The amplitude that the motion would have without damping. It only decreases over time.
    double amplitude(const Motion &motion) const;
};

} // namespace tolvane
