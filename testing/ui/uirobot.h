// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QRect>
#include <QtGui/QAccessible>

#include <chrono>

class QWindow;

namespace tolvane::test {

/// Uses a window like a person: finds controls by their accessible role and name, acts by pointer
/// and keyboard, and waits for the results. Its operations run the event loop; they throw
/// std::runtime_error after a timeout. Lengths are in device-independent pixels.
class UiRobot
{
public:
    /// A window of Qt Quick or of Qt Widgets.
    explicit UiRobot(QWindow &window);

    /// Waits until an accessible element of that role whose name contains `name` is within the
    /// window and does not move. Returns its rectangle in the window.
    QRect find(QAccessible::Role role, const QString &name = {});
    /// Whether find() would find an element at this moment.
    bool canSee(QAccessible::Role role, const QString &name = {}) const
    {
        return !rectOf(role, name).isEmpty();
    }
    /// Moves the pointer after a time.
    void moveTo(const QPoint &position, std::chrono::milliseconds after = {});
    /// Clicks the middle of a rectangle.
    void click(const QRect &rect, Qt::MouseButton button = Qt::LeftButton);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {});
    /// Sends the text key by key to the item with the focus.
    void type(const QString &text);
    /// Presses `key`, usually Tab, until an element of that role whose name contains `name` has the
    /// focus.
    void moveFocus(Qt::Key key, QAccessible::Role role, const QString &name = {});
    /// Turns the wheel in the middle of `over`, or else of the window; negative steps scroll down.
    void turnWheel(int steps, const QRect &over = {});
    /// Presses the button at `from` and moves the pointer by `offset`. release() lifts the button.
    void drag(const QPoint &from, const QPoint &offset);
    void release();
    /// Waits until no accessible element of the window moves, appears or disappears.
    void waitForAnimations();

private:
    QRect rectOf(QAccessible::Role role, const QString &name) const;

    QWindow &m_window;
    QElapsedTimer m_clock;
    QPoint m_pointer;
};

} // namespace tolvane::test
