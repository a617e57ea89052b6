// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/parallax.h>

#include <functional>

namespace tolvane {

/// The geometry of a view in which a sheet scrolls over a header. Does not depend on a window: it
/// computes heights and the state of the header from measurements.
///
/// Offsets are in pixels: 0 at rest, negative when the sheet is moved up, positive when it is
/// pulled down from rest.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ParallaxRules
{
public:
    static constexpr double contentCornerRadius = 20;

    explicit ParallaxRules(const ParallaxConfiguration &configuration);

    /// Called after each change of the state.
    std::function<void(ParallaxScrollState)> onStateChange;

    const ParallaxConfiguration &configuration() const { return m_configuration; }
    /// Like setLandscape(), changes heights but not the state.
    void setConfiguration(const ParallaxConfiguration &configuration);

    /// 300 until measured.
    double viewHeight() const { return m_viewHeight; }
    void setViewHeight(double height) { m_viewHeight = height; }

    /// Setting it changes heights but not the state, which only scrolling changes.
    bool isLandscape() const { return m_isLandscape; }
    void setLandscape(bool isLandscape) { m_isLandscape = isLandscape; }

    double openedHeight() const { return heights().openedHeight(); }
    double collapsedHeight() const { return heights().collapsedHeight(); }

    /// The distance that the sheet moves between opened and collapsed, without the rounded corners,
    /// which overlap the header. Negative if the two heights of the header differ by less than the
    /// corners.
    double scrollRange() const;
    /// The height of the transparent space above the content, through which the header shows:
    /// scrollRange(), but not negative.
    double spacerHeight() const;
    /// Grows without limit as the sheet is pulled down; shrinks by the collapsed height at most.
    double headerHeight() const;
    double sheetHeight() const;
    /// The upper edge of the content, from the top of the view. Never above the sheet.
    double contentTop() const;

    /// The offset of the last setScrollOffset().
    double scrollOffset() const { return m_scrollOffset; }
    ParallaxScrollState state() const { return m_state; }

    /// Sets the measured offset. If scrollRange() is 0 or less, any negative offset counts as full
    /// progress.
    void setScrollOffset(double offset);

private:
    const ParallaxHeightConfiguration &heights() const;
    double progress() const;
    ParallaxScrollState stateAt(double progress) const;

    ParallaxConfiguration m_configuration;
    double m_viewHeight = 300;
    bool m_isLandscape = false;
    double m_scrollOffset = 0;
    double m_lastScrollProgress = 0;
    ParallaxScrollState m_state = ParallaxScrollState::opened;
};

} // namespace tolvane
