// SPDX-License-Identifier: MIT
#include "state/colorscheme.h"

#include "base/sharedinstance.h"
#include "base/textlength.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tolvane {

namespace {

constexpr Color white = Color::fromRgb(0xffffff);
constexpr Color black = Color::fromRgb(0x000000);
constexpr Color gray = {0.5, 0.5, 0.5};

// System colours of iOS for the appearances in which they are used.
constexpr DynamicColor systemBlue = {Color::fromRgb(0x007aff), Color::fromRgb(0x0a84ff)};
constexpr Color systemGray6Light = Color::fromRgb(0xf2f2f7);
constexpr Color systemGray5Dark = Color::fromRgb(0x2c2c2e);

struct ColorSource
{
    DynamicColor ColorScheme::*color;
    DynamicColor initial;
    QString BrandingDto::*light;
    QString BrandingDto::*dark;
};

constexpr std::array colorSources = {
    ColorSource{&ColorScheme::primaryColor,
                {white, black},
                &BrandingDto::primaryLight,
                &BrandingDto::primaryDark},
    ColorSource{&ColorScheme::accentColor,
                {white, black},
                &BrandingDto::accentLight,
                &BrandingDto::accentDark},
    ColorSource{&ColorScheme::chatBackgroundColor,
                {white, black},
                &BrandingDto::chatBackgroundLight,
                &BrandingDto::chatBackgroundDark},
    ColorSource{&ColorScheme::fontBasicColor,
                {black, white},
                &BrandingDto::fontColorBasicLight,
                &BrandingDto::fontColorBasicDark},
    ColorSource{&ColorScheme::fontUserBubbleColor,
                {white, white},
                &BrandingDto::fontColorUserBubbleLight,
                &BrandingDto::fontColorUserBubbleDark},
    ColorSource{&ColorScheme::fontAgentBubbleColor,
                {black, white},
                &BrandingDto::fontColorAgentBubbleLight,
                &BrandingDto::fontColorAgentBubbleDark},
    ColorSource{&ColorScheme::bubbleUserColor, systemBlue, &BrandingDto::bubbleUserLight,
                &BrandingDto::bubbleUserDark},
    ColorSource{&ColorScheme::bubbleAgentColor,
                {systemGray6Light, systemGray5Dark},
                &BrandingDto::bubbleAgentLight,
                &BrandingDto::bubbleAgentDark},
};

} // namespace

Color Color::fromHex(const QString &text)
{
    QString digits = text.trimmed().toUpper();
    if (digits.startsWith(QLatin1Char('#')))
        digits.remove(0, 1);
    if (characterCount(digits) != 6)
        return gray;
    const QByteArray bytes = digits.toUtf8();
    std::uint32_t rgb = 0;
    std::from_chars(bytes.data(), bytes.data() + bytes.size(), rgb, 16);
    return fromRgb(rgb);
}

QString Color::name() const
{
    const auto channel = [](double value) { return static_cast<int>(std::lround(value * 255)); };
    return QString::asprintf("#%02x%02x%02x", channel(red), channel(green), channel(blue));
}

ColorScheme &ColorScheme::shared()
{
    return *sharedInstance<ColorScheme>();
}

ColorScheme::ColorScheme()
{
    for (const ColorSource &source : colorSources)
        this->*source.color = source.initial;
}

void ColorScheme::update(const BrandingDto &branding)
{
    for (const ColorSource &source : colorSources) {
        this->*source.color = {Color::fromHex(branding.*source.light),
                               Color::fromHex(branding.*source.dark)};
    }
    logoLight = branding.logoLight;
    logoDark = branding.logoDark;
}

} // namespace tolvane
