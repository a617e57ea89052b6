// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtCore/QRectF>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The on-screen keyboard, and the keys with a system-wide meaning, for QML. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT Keyboard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    /// The distance of its upper edge from the top of the window, in pixels; meaningless while it
    /// is not shown.
    Q_PROPERTY(double top READ top NOTIFY changed)
    /// Whether the last input was a key, not a pointer. Views show the focus then.
    Q_PROPERTY(bool isInUse READ isInUse NOTIFY isInUseChanged)

public:
    explicit Keyboard(QObject *parent = nullptr);

    bool isShown() const { return !m_area.isEmpty(); }
    double top() const { return m_area.top(); }
    bool isInUse() const { return m_isInUse; }
    /// Sets the part of the window that the keyboard covers; empty while it is not shown. The input
    /// method's changes do so.
    void setArea(const QRectF &area);

    /// Hides it until the customer next taps into a text field.
    Q_INVOKABLE void hide();
    /// Whether a key with these modifiers opens a context menu.
    Q_INVOKABLE static bool opensMenu(int key, int modifiers)
    {
        return key == Qt::Key_Menu || (key == Qt::Key_F10 && modifiers == Qt::ShiftModifier);
    }

Q_SIGNALS:
    void changed();
    /// The keyboard was hidden and is now shown.
    void appeared();
    void isInUseChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QRectF m_area;
    bool m_isInUse = false;
};

} // namespace tolvane
