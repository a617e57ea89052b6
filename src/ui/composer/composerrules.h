// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <optional>

namespace tolvane {

/// The measures of the composer, in points.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ComposerRules
{
    double editorMinHeight = 40;
    double editorMaxHeight = 200;
    double editorVerticalPadding = 10;

    /// What there is room for.
    struct Room
    {
        /// The most that the editor may take.
        double editor;
        /// The height of the strip of pictures; 0 without one.
        double strip;

        bool operator==(const Room &) const = default;
    };

    static constexpr double stripHeight = 150;
    static constexpr double stripSpacing = 4;

    /// The height that takes the place of the present one, if the text has been measured to differ
    /// by enough. A fraction of a point must not set off another layout.
    /// @param measured of the text, its padding included
    /// @param limit where the editor begins to scroll
    std::optional<double> update(double measured, double present, double limit) const;

    /// Of the editor, for the height that was last taken over; 0 before there was one.
    double editorHeight(double measuredHeight) const;

    /// Of the bar's corners: a capsule at rest, tighter the higher it grows.
    double cornerRadius(double measuredHeight) const;

    /// Fits editor and strip into a height. The editor gives way first, as it can scroll; then the
    /// pictures get smaller. Of what doesn't fit even so, the least heights remain.
    Room fit(double available, bool hasStrip) const;
};

} // namespace tolvane
