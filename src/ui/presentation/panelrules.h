// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// Where the messenger is in the host's window, for QML and for a window of its own.
class TOLVANE_VIEWS_AUTOTEST_EXPORT PanelRules : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// From the edges of the window, in pixels.
    static constexpr double margin = 16;

    /// Whether a window of this size has room for the panel and for the host's content.
    Q_INVOKABLE static bool hasRoom(const QSizeF &window)
    {
        return window.width() >= 700 && window.height() >= 500;
    }

    /// The panel at the lower left or right corner, or the whole window if that has no room.
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
