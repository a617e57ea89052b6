// SPDX-License-Identifier: MIT
#include <tolvane/parallax.h>

#include <algorithm>

namespace tolvane {

namespace {

/// The comparison is false for NaN, too.
double atLeast(double minimum, double value)
{
    return value > minimum ? value : minimum;
}

double clampedToUnit(double value)
{
    return std::min(atLeast(0, value), 1.0);
}

} // namespace

ParallaxHeightConfiguration::ParallaxHeightConfiguration(double openedHeight,
                                                         double collapsedHeight)
    : m_openedHeight(atLeast(0, openedHeight))
    , m_collapsedHeight(atLeast(0, collapsedHeight))
{
}

ParallaxConfiguration::ParallaxConfiguration(const ParallaxHeightConfiguration &portrait,
                                             const ParallaxHeightConfiguration &landscape,
                                             double parallaxFactor, double stretchFactor,
                                             double thresholdPercentage,
                                             const QColor &headerBackground,
                                             const QColor &contentBackground)
    : m_portrait(portrait)
    , m_landscape(landscape)
    , m_parallaxFactor(clampedToUnit(parallaxFactor))
    , m_stretchFactor(atLeast(1, stretchFactor))
    , m_thresholdPercentage(clampedToUnit(thresholdPercentage))
    , m_headerBackground(headerBackground)
    , m_contentBackground(contentBackground)
{
}

} // namespace tolvane
