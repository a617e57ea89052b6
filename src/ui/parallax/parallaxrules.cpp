// SPDX-License-Identifier: MIT
#include "ui/parallax/parallaxrules.h"

#include <algorithm>
#include <cmath>

namespace tolvane {

namespace {

/// The state is evaluated only when the progress has changed by more than this. The tolerance
/// absorbs rounding errors of differences that are exactly at the limit.
constexpr double minimumProgressChange = 0.05;
constexpr double progressTolerance = 1e-9;

/// The fraction of the threshold below which a collapsed header opens again.
constexpr double reopeningFraction = 0.5;

} // namespace

ParallaxRules::ParallaxRules(const ParallaxConfiguration &configuration)
    : m_configuration(configuration)
{
}

void ParallaxRules::setConfiguration(const ParallaxConfiguration &configuration)
{
    m_configuration = configuration;
}

const ParallaxHeightConfiguration &ParallaxRules::heights() const
{
    return m_isLandscape ? m_configuration.landscape() : m_configuration.portrait();
}

double ParallaxRules::scrollRange() const
{
    return openedHeight() - collapsedHeight() - contentCornerRadius;
}

double ParallaxRules::spacerHeight() const
{
    return std::max(0.0, scrollRange());
}

double ParallaxRules::headerHeight() const
{
    return openedHeight() + std::max(m_scrollOffset, -collapsedHeight());
}

double ParallaxRules::sheetHeight() const
{
    return std::max(0.0, m_viewHeight - collapsedHeight());
}

double ParallaxRules::contentTop() const
{
    return collapsedHeight() + std::max(0.0, spacerHeight() + m_scrollOffset);
}

void ParallaxRules::setScrollOffset(double offset)
{
    // NaN would spread to every height.
    m_scrollOffset = std::isnan(offset) ? 0 : offset;
    const double now = progress();
    if (std::abs(now - m_lastScrollProgress) <= minimumProgressChange + progressTolerance)
        return;
    m_lastScrollProgress = now;
    const ParallaxScrollState next = stateAt(now);
    if (next == m_state)
        return;
    m_state = next;
    if (onStateChange)
        onStateChange(next);
}

double ParallaxRules::progress() const
{
    const double range = scrollRange();
    if (!(range > 0))
        return m_scrollOffset < 0 ? 1 : 0;
    const double progress = -m_scrollOffset / range;
    // The comparison is false for NaN, too, which comes from two infinite values.
    return progress > 0 ? std::min(progress, 1.0) : 0;
}

ParallaxScrollState ParallaxRules::stateAt(double progress) const
{
    const double threshold = m_configuration.thresholdPercentage();
    const bool isCollapsed = m_state == ParallaxScrollState::collapsed
                                 ? progress >= threshold * reopeningFraction
                                 : progress > threshold;
    return isCollapsed ? ParallaxScrollState::collapsed : ParallaxScrollState::opened;
}

} // namespace tolvane
