// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The configuration of the QML type `ParallaxScrollView`. Requires `Tolvane::Sdk`.

#include <tolvane/export.h>

#include <QtGui/QColor>

namespace tolvane {

/// Whether the header behind the scrolling sheet is visible or covered.
enum class ParallaxScrollState {
    opened = 0,   ///< the header is shown
    collapsed = 1 ///< the sheet covers it
};

/// The visible height of the header above the sheet, in device-independent pixels, for one
/// orientation. Heights that are not greater than 0, and NaN, become 0.
class TOLVANE_VIEWS_EXPORT ParallaxHeightConfiguration
{
public:
    /// @param openedHeight the height while the sheet is at rest, in device-independent pixels
    /// @param collapsedHeight the height while the sheet is moved up, in device-independent pixels
    ParallaxHeightConfiguration(double openedHeight, double collapsedHeight);

    /// The height while the sheet is at rest, in device-independent pixels.
    double openedHeight() const { return m_openedHeight; }
    /// The height while the sheet is moved up, in device-independent pixels.
    double collapsedHeight() const { return m_collapsedHeight; }

    /// Compares both heights, exactly.
    bool operator==(const ParallaxHeightConfiguration &) const = default;

private:
    double m_openedHeight;
    double m_collapsedHeight;
};

/// The appearance and the motion of a parallax view, as a value.
class TOLVANE_VIEWS_EXPORT ParallaxConfiguration
{
public:
    /// @param portrait heights in portrait orientation
    /// @param landscape heights in landscape orientation
    /// @param parallaxFactor how far the header follows the sheet, clamped to 0 to 1
    /// @param stretchFactor how far the header grows when the sheet is pulled down, at least 1
    /// @param thresholdPercentage the fraction of the way up from which the header counts as
    /// collapsed, clamped to 0 to 1; on the way down, half of it opens the header again
    /// @param headerBackground colour behind the header
    /// @param contentBackground colour behind the content of the sheet
    ///
    /// The two factors are stored for code that draws the header; the library does not apply them,
    /// and heights follow the sheet exactly. NaN becomes the smallest allowed value.
    ParallaxConfiguration(const ParallaxHeightConfiguration &portrait,
                          const ParallaxHeightConfiguration &landscape, double parallaxFactor,
                          double stretchFactor, double thresholdPercentage,
                          const QColor &headerBackground, const QColor &contentBackground);

    /// Heights in portrait orientation.
    const ParallaxHeightConfiguration &portrait() const { return m_portrait; }
    /// Heights in landscape orientation.
    const ParallaxHeightConfiguration &landscape() const { return m_landscape; }
    /// From 0 to 1.
    double parallaxFactor() const { return m_parallaxFactor; }
    /// 1 or more.
    double stretchFactor() const { return m_stretchFactor; }
    /// From 0 to 1.
    double thresholdPercentage() const { return m_thresholdPercentage; }
    /// The colour behind the header.
    const QColor &headerBackground() const { return m_headerBackground; }
    /// The colour behind the content of the sheet.
    const QColor &contentBackground() const { return m_contentBackground; }

    /// Compares all members exactly.
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
