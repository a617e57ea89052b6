// SPDX-License-Identifier: MIT
#include "ui/composer/composerrules.h"

#include <algorithm>
#include <cmath>

namespace tolvane {

namespace {

constexpr double deadBand = 0.5;
constexpr double minRadius = 14;
/// At this height, a picture is still recognisable, and a finger can hit its button.
constexpr double minStripHeight = 56;

} // namespace

std::optional<double> ComposerRules::update(double measured, double current, double limit) const
{
    const double clamped = std::max(std::min(measured, limit), editorMinHeight);
    if (std::abs(clamped - current) > deadBand)
        return clamped;
    return std::nullopt;
}

double ComposerRules::editorHeight(double measuredHeight) const
{
    return measuredHeight == 0 ? editorMinHeight : measuredHeight;
}

double ComposerRules::cornerRadius(double measuredHeight) const
{
    const double base = editorMinHeight + 2 * editorVerticalPadding;
    const double range = editorMaxHeight - editorMinHeight;
    const double progress = range > 0 ? std::clamp((measuredHeight - base) / range, 0.0, 1.0) : 0;
    const double eased = progress * (2 - progress);
    return base / 2 + (minRadius - base / 2) * eased;
}

ComposerRules::Heights ComposerRules::fit(double available, bool hasThumbnails) const
{
    const double inside = available - 2 * editorVerticalPadding;
    const double fullStrip = hasThumbnails ? stripHeight + stripSpacing : 0;
    const double editor = std::clamp(inside - fullStrip, editorMinHeight, editorMaxHeight);
    const double strip = std::clamp(inside - editor - stripSpacing, minStripHeight, stripHeight);
    return {.editor = editor, .strip = hasThumbnails ? strip : 0};
}

} // namespace tolvane
