// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QRect>
#include <QtGui/QAccessible>

#include <stdexcept>

class QQuickWindow;

/// What was to be seen and is not.
class NotFound : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A person in front of a window: knows of it what a screen reader is told, acts by pointer and
/// keyboard, and waits for what takes its time.
class Visitor
{
public:
    explicit Visitor(QQuickWindow &window);

    /// Of the first thing of the role whose name holds that, once it is seen and at rest, within
    /// the window. Throws NotFound when it does not come.
    QRect find(QAccessible::Role role, const QString &name = {});
    /// Whether there is such a thing at this moment.
    bool sees(QAccessible::Role role, const QString &name = {}) const
    {
        return !placeOf(role, name).isEmpty();
    }
    void click(const QRect &place);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {});
    /// Key by key, to whatever has the focus.
    void type(const QString &text);
    void turnWheel(int steps);
    /// Presses at a point and moves by so much; the pointer stays down until release().
    void drag(const QPoint &from, const QPoint &by);
    void release();
    /// Lets animations end and pictures arrive.
    void rest();

private:
    QRect placeOf(QAccessible::Role role, const QString &name) const;
    void sendMouse(QEvent::Type type, const QPointF &at, Qt::MouseButtons down);

    QQuickWindow &m_window;
    QElapsedTimer m_clock;
    QPoint m_pointer;
};
