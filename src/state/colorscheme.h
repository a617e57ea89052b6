// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QString>

#include <array>
#include <cstdint>
#include <optional>

namespace tolvane {

/// An opaque sRGB colour with channels from 0 to 1.
struct TOLVANE_AUTOTEST_EXPORT Color
{
    double red = 0;
    double green = 0;
    double blue = 0;

    /// From 0xRRGGBB.
    static constexpr Color fromRgb(std::uint32_t rgb)
    {
        return {((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0, (rgb & 0xff) / 255.0};
    }

    /// Parses a text such as "#1a2B3c". Surrounding white space and one number sign are removed. A
    /// remainder that is not six characters long yields gray. Of six characters, the longest prefix
    /// of hexadecimal digits counts: "12g456" is 0x12, and a text without digits is black.
    static Color fromHex(const QString &text);

    /// "#rrggbb"
    QString name() const;

    bool operator==(const Color &) const = default;
};

enum class Appearance { light, dark };

/// A colour for the light and the dark appearance.
struct DynamicColor
{
    Color light;
    Color dark;

    const Color &resolved(Appearance appearance) const
    {
        return appearance == Appearance::dark ? dark : light;
    }

    bool operator==(const DynamicColor &) const = default;
};

/// The colours of the branding, which views read when they are created. It does not notify of
/// changes. Main thread.
struct TOLVANE_AUTOTEST_EXPORT ColorScheme
{
    TOLVANE_PRIVATE_EXPORT static ColorScheme &shared();

    ColorScheme();

    void update(const BrandingDto &branding);

    DynamicColor primaryColor;
    DynamicColor accentColor;
    DynamicColor chatBackgroundColor;
    DynamicColor fontBasicColor;
    DynamicColor fontUserBubbleColor;
    DynamicColor fontAgentBubbleColor;
    DynamicColor bubbleUserColor;
    DynamicColor bubbleAgentColor;
    std::optional<QString> logoLight = QString(QLatin1String(""));
    std::optional<QString> logoDark = QString(QLatin1String(""));
};

/// One colour of the branding: its name, its member, its default and the two fields of its record.
struct BrandingColor
{
    const char *name;
    DynamicColor ColorScheme::*color;
    DynamicColor initial;
    QString BrandingDto::*light;
    QString BrandingDto::*dark;
};

namespace colors {
constexpr Color white = Color::fromRgb(0xffffff);
constexpr Color black = Color::fromRgb(0x000000);
// System colours of iOS for the appearances in which they are used.
constexpr DynamicColor systemBlue = {Color::fromRgb(0x007aff), Color::fromRgb(0x0a84ff)};
constexpr DynamicColor systemGray = {Color::fromRgb(0xf2f2f7), Color::fromRgb(0x2c2c2e)};
} // namespace colors

/// All colours of the branding.
inline constexpr std::array brandingColors = {
    BrandingColor{"primaryColor",
                  &ColorScheme::primaryColor,
                  {colors::white, colors::black},
                  &BrandingDto::primaryLight,
                  &BrandingDto::primaryDark},
    BrandingColor{"accentColor",
                  &ColorScheme::accentColor,
                  {colors::white, colors::black},
                  &BrandingDto::accentLight,
                  &BrandingDto::accentDark},
    BrandingColor{"chatBackgroundColor",
                  &ColorScheme::chatBackgroundColor,
                  {colors::white, colors::black},
                  &BrandingDto::chatBackgroundLight,
                  &BrandingDto::chatBackgroundDark},
    BrandingColor{"fontBasicColor",
                  &ColorScheme::fontBasicColor,
                  {colors::black, colors::white},
                  &BrandingDto::fontColorBasicLight,
                  &BrandingDto::fontColorBasicDark},
    BrandingColor{"fontUserBubbleColor",
                  &ColorScheme::fontUserBubbleColor,
                  {colors::white, colors::white},
                  &BrandingDto::fontColorUserBubbleLight,
                  &BrandingDto::fontColorUserBubbleDark},
    BrandingColor{"fontAgentBubbleColor",
                  &ColorScheme::fontAgentBubbleColor,
                  {colors::black, colors::white},
                  &BrandingDto::fontColorAgentBubbleLight,
                  &BrandingDto::fontColorAgentBubbleDark},
    BrandingColor{"bubbleUserColor", &ColorScheme::bubbleUserColor, colors::systemBlue,
                  &BrandingDto::bubbleUserLight, &BrandingDto::bubbleUserDark},
    BrandingColor{"bubbleAgentColor", &ColorScheme::bubbleAgentColor, colors::systemGray,
                  &BrandingDto::bubbleAgentLight, &BrandingDto::bubbleAgentDark},
};

} // namespace tolvane
