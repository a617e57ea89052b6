// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QMargins>
#include <QtCore/QPointer>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickWindow>

namespace tolvane {

/// The edges of a window that the system covers or cuts off, with a notch or a bar of its own, as
/// far as Qt reports them: before Qt 6.9 all margins are 0.
class TOLVANE_VIEWS_AUTOTEST_EXPORT SafeMargins : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Null for content that the host has placed.
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(int left READ left NOTIFY changed)
    Q_PROPERTY(int top READ top NOTIFY changed)
    Q_PROPERTY(int right READ right NOTIFY changed)
    Q_PROPERTY(int bottom READ bottom NOTIFY changed)

public:
    using QObject::QObject;

    QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window);

    bool isEmpty() const { return m_margins.isNull(); }
    int left() const { return m_margins.left(); }
    int top() const { return m_margins.top(); }
    int right() const { return m_margins.right(); }
    int bottom() const { return m_margins.bottom(); }
    void setMargins(const QMargins &margins);

Q_SIGNALS:
    void changed();

private:
    QPointer<QQuickWindow> m_window;
    QMargins m_margins;
};

} // namespace tolvane
