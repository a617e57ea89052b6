// SPDX-License-Identifier: MIT
#include "ui/attachments/hostpicture.h"

#include <QtCore/QMetaObject>
#include <QtGui/QPixmap>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace tolvane::hostpicture {

namespace {

/// Draws a scene without the messenger, which is an item in it.
QImage grabWithoutMessenger(QQuickItem &view, QQuickWindow &window)
{
    QQuickItem *messenger = &view;
    while (messenger->parentItem() && messenger->parentItem() != window.contentItem())
        messenger = messenger->parentItem();
    // A hidden item would lose the focus.
    const double opacity = messenger->opacity();
    messenger->setOpacity(0);
    QImage picture = window.grabWindow();
    messenger->setOpacity(opacity);
    return picture;
}

/// Draws a window of widgets. The library does not link QtWidgets, but the focus object of such a
/// window is a widget, and QWidget::grab() can be called by its name.
QImage grabWidgets(const QWindow &window)
{
    QObject *widget = window.focusObject();
    while (widget && widget->property("size").toSize() != window.size())
        widget = widget->parent();
    QPixmap picture;
    if (!widget || !widget->isWidgetType() ||
        !QMetaObject::invokeMethod(widget, "grab", Q_RETURN_ARG(QPixmap, picture)))
        return {};
    return picture.toImage();
}

} // namespace

QImage grab(QQuickItem &view)
{
    QQuickWindow *window = view.window();
    if (!window)
        return {};
    if (!window->property("isMessenger").toBool())
        return grabWithoutMessenger(view, *window);
    const QWindow *host = window->parent() ? window->parent() : window->transientParent();
    return host ? grabWidgets(*host) : QImage();
}

} // namespace tolvane::hostpicture
