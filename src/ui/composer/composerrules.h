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

    /// The height that replaces the present one, if the measured height of the text differs enough
    /// from it. A fraction of a pixel must not trigger another layout.
    /// @param measured the height of the text, its padding included
    /// @param limit the height at which the editor begins to scroll
    std::optional<double> update(double measured, double present, double limit) const;

    /// The height of the editor.
    /// @param measuredHeight the height that was last applied; 0 before the first
    double editorHeight(double measuredHeight) const;

    /// The radius of the bar's corners: a capsule at rest, smaller the higher the bar grows.
    double cornerRadius(double measuredHeight) const;

    /// Fits editor and strip into a height. The editor shrinks first, as it can scroll; then the
    /// pictures do. Neither gets smaller than its minimum height, even if it doesn't fit.
    Heights fit(double available, bool hasThumbnails) const;
};

} // namespace tolvane
