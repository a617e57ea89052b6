// SPDX-License-Identifier: MIT
#include "ui/kit/theme.h"

#include <QtCore/QEvent>
#include <QtGui/QFontInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>

#include <algorithm>

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
