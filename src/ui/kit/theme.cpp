// SPDX-License-Identifier: MIT
#include "ui/kit/theme.h"

#include <QtCore/QEvent>
#include <QtGui/QFontInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>

#include <algorithm>
#include <cmath>

namespace tolvane {

namespace {

SystemAppearance systemAppearance()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    switch (QGuiApplication::styleHints()->colorScheme()) {
    case Qt::ColorScheme::Light:
        return SystemAppearance::light;
    case Qt::ColorScheme::Dark:
        return SystemAppearance::dark;
    case Qt::ColorScheme::Unknown:
        break;
    }
#endif
    return SystemAppearance::unknown;
}

/// Of sRGB, by the definition of the Web Content Accessibility Guidelines.
double relativeLuminance(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

QColor blended(const QColor &ground, const QColor &color)
{
    const auto mix = [&color](float below, float above) {
        return below + (above - below) * color.alphaF();
    };
    return QColor::fromRgbF(mix(ground.redF(), color.redF()), mix(ground.greenF(), color.greenF()),
                            mix(ground.blueF(), color.blueF()));
}

/// From 1 to 21, as the Web Content Accessibility Guidelines define it.
double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

Theme::Theme(QObject *parent)
    : QObject(parent)
{
    qGuiApp->installEventFilter(this);
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    connect(QGuiApplication::styleHints(), &QStyleHints::colorSchemeChanged, this, &Theme::changed);
#endif
}

bool Theme::isDark() const
{
    return isDarkAppearance(QGuiApplication::palette(), systemAppearance());
}

const std::optional<QString> &Theme::logoUrl() const
{
    const ColorScheme &scheme = ColorScheme::shared();
    return isDark() ? scheme.logoDark : scheme.logoLight;
}

bool Theme::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && (event->type() == QEvent::ApplicationPaletteChange ||
                               event->type() == QEvent::ApplicationFontChange))
        Q_EMIT changed();
    return QObject::eventFilter(watched, event);
}

QColor Theme::branded(DynamicColor ColorScheme::*color) const
{
    const DynamicColor &dynamic = ColorScheme::shared().*color;
    const Color &shade = dynamic.resolved(isDark() ? Appearance::dark : Appearance::light);
    return QColor::fromRgbF(float(shade.red), float(shade.green), float(shade.blue));
}

QColor Theme::byAppearance(QRgb light, QRgb dark) const
{
    return QColor::fromRgba(isDark() ? dark : light);
}

QColor Theme::visibleOn(const QColor &ground, const QColor &color)
{
    constexpr double leastContrast = 3;
    if (contrast(ground, blended(ground, color)) >= leastContrast)
        return color;
    return contrast(ground, Qt::white) > contrast(ground, Qt::black) ? Qt::white : Qt::black;
}

double Theme::columnInset(double width, double margin) const
{
    return margin + std::max(0.0, (width - columnWidth()) / 2);
}

int Theme::scaled(int pixels) const
{
    return qRound(pixels * textScale(QFontInfo(QGuiApplication::font()).pixelSize()));
}

bool isDarkAppearance(const QPalette &palette, SystemAppearance system)
{
    const bool isFromHost = palette.isBrushSet(QPalette::Active, QPalette::Window);
    if (system != SystemAppearance::unknown && !isFromHost)
        return system == SystemAppearance::dark;
    // A dark appearance has lighter text than background.
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

double textScale(int pixelSize)
{
    // The default font size of desktops and phones, in pixels.
    constexpr double defaultPixelSize = 13;
    constexpr double scalingThreshold = 1.4;
    constexpr double maximumScale = 2;
    const double scale = pixelSize / defaultPixelSize;
    return scale > scalingThreshold ? std::min(scale, maximumScale) : 1;
}

} // namespace tolvane
