// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

namespace tolvane {

/// The motion of a damped spring with a mass of 1, exact at any time: frames that come late or not
/// at all change nothing in it. Knows no window.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT Spring
{
    /// Where it is from its rest, and how fast it goes, in units a second.
    struct Motion
    {
        double displacement = 0;
        double velocity = 0;
    };

    /// How long one swing would take without damping, in seconds. At 0 or less everything is at
    /// rest at once.
    double response = 0.35;
    /// 0 swings for ever, below 1 it swings beyond its rest, from 1 on it creeps there.
    double dampingFraction = 0.75;

    double stiffness() const;
    double damping() const;

    /// What has become of a motion after so many seconds, none of them below 0.
    Motion after(double seconds, const Motion &start) const;

    /// How far the motion could swing if nothing damped it: it only ever gets less.
    double reach(const Motion &motion) const;
};

} // namespace tolvane
