// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/parallax.h>

#include <functional>

namespace tolvane {

/// How a header and the sheet that scrolls over it share a view. Knows no window: it is told what
/// was measured, and answers with heights and with the state of the header.
///
/// Offsets are in points: 0 at rest, negative as the sheet moves up, positive as it is pulled down
/// beyond its rest.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ParallaxRules
{
public:
    static constexpr double contentCornerRadius = 20;

    explicit ParallaxRules(const ParallaxConfiguration &configuration);

    /// Told of each change of the state, after the change.
    std::function<void(ParallaxScrollState)> onStateChange;

    const ParallaxConfiguration &configuration() const { return m_configuration; }
    /// As turning the device, changes heights and leaves the state.
    void setConfiguration(const ParallaxConfiguration &configuration);

    /// 300 until measured.
    double viewHeight() const { return m_viewHeight; }
    void setViewHeight(double height) { m_viewHeight = height; }

    /// Changes heights and leaves the state: that one only follows scrolling.
    bool isLandscape() const { return m_isLandscape; }
    void setLandscape(bool isLandscape) { m_isLandscape = isLandscape; }

    double openedHeight() const { return heights().openedHeight(); }
    double collapsedHeight() const { return heights().collapsedHeight(); }

    /// How far the sheet travels from rest to where it stays; its rounded corners lie on the
    /// header. May be negative, for a header that hardly changes.
    double scrollRange() const;
    /// The clear room above the content, by which the header shows through: the range, if there is
    /// one.
    double spacerHeight() const;
    /// Grows without limit as the sheet is pulled down; shrinks by the collapsed height at most.
    double headerHeight() const;
    double sheetHeight() const;
    /// Where the content begins, from the top of the view. Never above the sheet.
    double contentTop() const;

    /// Of the last scroll().
    double scrollOffset() const { return m_scrollOffset; }
    ParallaxScrollState state() const { return m_state; }

    /// Takes in a measured offset. Without a range (0 or less) there is no way between the states:
    /// anything scrolled counts as all of it.
    void scroll(double offset);

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
