// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The on-screen keyboard, for QML. Main thread.
class Keyboard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    /// The distance of its upper edge from the top of the window, in pixels; meaningless while it
    /// is not shown.
    Q_PROPERTY(double top READ top NOTIFY changed)

public:
    explicit Keyboard(QObject *parent = nullptr);

    bool isShown() const;
    double top() const;

    /// Hides it until the customer next taps into a text field.
    Q_INVOKABLE void hide();

Q_SIGNALS:
    void changed();
    /// It is shown now and was not before.
    void appeared();

private:
    void update();

    bool m_wasShown = false;
};

} // namespace tolvane
