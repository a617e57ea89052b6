// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// What the QML type `ParallaxScrollView` is told. Needs `Tolvane::Sdk`.

#include <tolvane/export.h>

#include <QtGui/QColor>

namespace tolvane {

/// Whether the header that lies behind a scrolling sheet is shown, or the sheet was moved over it.
enum class ParallaxScrollState {
    opened = 0,   ///< the header is shown
    collapsed = 1 ///< the sheet lies over it
};

/// How much of the header is seen above the sheet, in points, for one orientation of the device.
/// A height that is not greater than 0, or is not a number, is kept as 0.
class TOLVANE_VIEWS_EXPORT ParallaxHeightConfiguration
{
public:
    /// @param openedHeight with the sheet at rest
    /// @param collapsedHeight with the sheet moved up
    ParallaxHeightConfiguration(double openedHeight, double collapsedHeight);

    /// With the sheet at rest, in points.
    double openedHeight() const { return m_openedHeight; }
    /// With the sheet moved up, in points.
    double collapsedHeight() const { return m_collapsedHeight; }

    /// Compares both heights, exactly.
    bool operator==(const ParallaxHeightConfiguration &) const = default;

private:
    double m_openedHeight;
    double m_collapsedHeight;
};

/// What a parallax view looks like and how it moves. A value; each part has to be given.
class TOLVANE_VIEWS_EXPORT ParallaxConfiguration
{
public:
    /// @param portrait  heights while the view is upright
    /// @param landscape heights while the view lies on its side
    /// @param parallaxFactor how far the header follows the sheet, kept within 0 to 1
    /// @param stretchFactor how far the header grows as the sheet is pulled down, kept at 1 or more
    /// @param thresholdPercentage the part of the way up after which the header counts as
    /// collapsed, kept within 0 to 1; on the way back, half of it opens the header again
    /// @param headerBackground behind the header
    /// @param contentBackground behind what the sheet shows
    ///
    /// The two factors are kept for whoever draws the header; the heights follow the sheet exactly,
    /// whatever the factors. What is not a number becomes the least value.
    ParallaxConfiguration(const ParallaxHeightConfiguration &portrait,
                          const ParallaxHeightConfiguration &landscape, double parallaxFactor,
                          double stretchFactor, double thresholdPercentage,
                          const QColor &headerBackground, const QColor &contentBackground);

    /// Heights while the view is upright.
    const ParallaxHeightConfiguration &portrait() const { return m_portrait; }
    /// Heights while the view lies on its side.
    const ParallaxHeightConfiguration &landscape() const { return m_landscape; }
    /// Within 0 to 1.
    double parallaxFactor() const { return m_parallaxFactor; }
    /// 1 or more.
    double stretchFactor() const { return m_stretchFactor; }
    /// Within 0 to 1.
    double thresholdPercentage() const { return m_thresholdPercentage; }
    /// Behind the header.
    const QColor &headerBackground() const { return m_headerBackground; }
    /// Behind what the sheet shows.
    const QColor &contentBackground() const { return m_contentBackground; }

    /// Compares all parts, exactly.
    bool operator==(const ParallaxConfiguration &) const = default;

private:
    ParallaxHeightConfiguration m_portrait;
    ParallaxHeightConfiguration m_landscape;
    double m_parallaxFactor;
    double m_stretchFactor;
    double m_thresholdPercentage;
    QColor m_headerBackground;
    QColor m_contentBackground;
};

} // namespace tolvane
