// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <optional>

namespace tolvane {

/// The sizes of the composer, in device-independent pixels.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ComposerRules
{
    double editorMinHeight = 40;
    double editorMaxHeight = 200;
    double editorVerticalPadding = 10;

    /// The heights that fit into the available height.
    struct Heights
    {
        /// The maximum height of the editor.
        double editor;
        /// The height of the strip of pictures; 0 without one.
        double strip;

        bool operator==(const Heights &) const = default;
    };

    static constexpr double stripHeight = 150;
    static constexpr double stripSpacing = 4;

    /// The height that replaces the current one. Absent if both are almost equal: a fraction of a
    /// pixel must not trigger another layout.
    /// @param measured the height of the text with its padding
    /// @param limit the height at which the editor begins to scroll
    std::optional<double> update(double measured, double current, double limit) const;

    /// The height of the editor.
    /// @param measuredHeight the last applied height; 0 before the first
    double editorHeight(double measuredHeight) const;

    /// The radius of the bar's corners. The bar is a capsule at its lowest height; the radius
    /// decreases as it grows.
    double cornerRadius(double measuredHeight) const;

    /// Fits editor and strip into a height. The editor shrinks first, since it can scroll, then the
    /// strip. Both keep their minimum heights, even if these do not fit.
    Heights fit(double available, bool hasThumbnails) const;
};

} // namespace tolvane
