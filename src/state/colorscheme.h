// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QString>

#include <cstdint>
#include <optional>

namespace tolvane {

/// An opaque colour in sRGB, each channel from 0 to 1.
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

    /// From a text such as "#1a2B3c": white space around it and one number sign are dropped. What
    /// is then not six characters long is gray; of six, the longest prefix of digits counts, so
    /// that "12g456" is 0x12 and a text without digits is black.
    static Color fromHex(const QString &text);

    /// "#rrggbb"
    QString name() const;

    bool operator==(const Color &) const = default;
};

enum class Appearance { light, dark };

/// A colour that resolves itself for the appearance of the display.
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

/// The colours of the branding, which all views read as they are built. Main thread; notifies
/// nobody.
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

} // namespace tolvane
