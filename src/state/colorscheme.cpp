// SPDX-License-Identifier: MIT
#include "state/colorscheme.h"

#include "base/sharedinstance.h"
#include "base/textlength.h"

#include <charconv>
#include <cmath>

namespace tolvane {

namespace {

constexpr Color gray = {0.5, 0.5, 0.5};

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
    for (const BrandingColor &entry : brandingColors)
        this->*entry.color = entry.initial;
}

void ColorScheme::update(const BrandingDto &branding)
{
    for (const BrandingColor &entry : brandingColors) {
        this->*entry.color = {Color::fromHex(branding.*entry.light),
                              Color::fromHex(branding.*entry.dark)};
    }
    logoLight = branding.logoLight;
    logoDark = branding.logoDark;
}

} // namespace tolvane
