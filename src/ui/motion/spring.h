// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

namespace tolvane {

/// A damped spring with a mass of 1. Its motion is computed from the start for any time, so late or
/// dropped frames do not change it. Does not depend on a window.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT Spring
{
    /// The distance from rest, and the velocity per second.
    struct Motion
    {
        double displacement = 0;
        double velocity = 0;
    };

    /// The period without damping, in seconds. At 0 or less, the spring comes to rest immediately.
    double response = 0.35;
    /// At 0 the spring oscillates for ever; below 1 it overshoots.
    double dampingFraction = 0.75;

    double stiffness() const;
    double damping() const;

    /// The motion some seconds after `start`; their number must not be negative.
    Motion after(double seconds, const Motion &start) const;

    /// The amplitude that the motion would have without damping. It only decreases over time.
    double amplitude(const Motion &motion) const;
};

} // namespace tolvane
