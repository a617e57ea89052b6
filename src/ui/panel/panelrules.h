// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The geometry of the messenger in the host's window, for QML and for MessengerWindow.
class TOLVANE_VIEWS_AUTOTEST_EXPORT PanelRules : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The distance from the edges of the window, in pixels.
    static constexpr double margin = 16;

    /// True if a window of this size has room for the panel beside the host's content.
    Q_INVOKABLE static bool hasRoom(const QSizeF &window)
    {
        return window.width() >= 700 && window.height() >= 500;
    }

    /// The panel in the lower left or right corner, or the whole window if it has no room for both.
    Q_INVOKABLE static QRectF area(const QSizeF &window, bool prefersPanel, bool isLeft)
    {
        if (!prefersPanel || !hasRoom(window))
            return QRectF(QPointF(), window);
        const QSizeF size(400, qMin(720.0, window.height() - 2 * margin));
        const double x = isLeft ? margin : window.width() - margin - size.width();
        return QRectF(QPointF(x, window.height() - margin - size.height()), size);
    }
};

} // namespace tolvane
