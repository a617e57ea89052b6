// SPDX-License-Identifier: MIT
#include "ui/theme.h"

#include "state/colorscheme.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace tolvane {

Theme::Theme(QObject *parent)
    : QObject(parent)
{
    qGuiApp->installEventFilter(this);
}

bool Theme::isDark() const
{
    // Qt 6.4 does not tell the appearance; a dark one has light text on a darker ground.
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

QColor Theme::primaryColor() const
{
    return resolved(ColorScheme::shared().primaryColor);
}

bool Theme::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        Q_EMIT changed();
    return QObject::eventFilter(watched, event);
}

QColor Theme::resolved(const DynamicColor &color) const
{
    const Color &shade = color.resolved(isDark() ? Appearance::dark : Appearance::light);
    return QColor::fromRgbF(float(shade.red), float(shade.green), float(shade.blue));
}

} // namespace tolvane
