// SPDX-License-Identifier: MIT
#include "testing/ui/visitor.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QWheelEvent>
#include <QtQuick/QQuickWindow>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 20s;
constexpr auto glance = 60ms;

void wait(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

bool isWanted(const QAccessibleInterface &thing, QAccessible::Role role, const QString &name)
{
    return thing.role() == role && thing.text(QAccessible::Name).contains(name);
}

/// The place on the screen of the first that is wanted and has its middle within `seen`.
QRect search(QAccessibleInterface *thing, QAccessible::Role role, const QString &name,
             const QRect &seen)
{
    if (!thing || thing->state().invisible)
        return {};
    for (int i = 0; i < thing->childCount(); ++i) {
        const QRect place = search(thing->child(i), role, name, seen);
        if (!place.isEmpty())
            return place;
    }
    const QRect place = thing->rect();
    return isWanted(*thing, role, name) && seen.contains(place.center()) ? place : QRect();
}

} // namespace

Visitor::Visitor(QQuickWindow &window)
    : m_window(window)
{
    m_clock.start();
}

QRect Visitor::placeOf(QAccessible::Role role, const QString &name) const
{
    const QPoint origin = m_window.mapToGlobal(QPoint());
    const QRect seen(origin, m_window.size());
    return search(QAccessible::queryAccessibleInterface(&m_window), role, name, seen)
        .translated(-origin);
}

QRect Visitor::find(QAccessible::Role role, const QString &name)
{
    QElapsedTimer time;
    time.start();
    QRect before;
    while (!time.hasExpired(std::chrono::milliseconds(patience).count())) {
        const QRect place = placeOf(role, name);
        if (!place.isEmpty() && place == before)
            return place;
        before = place;
        wait(glance);
    }
    throw NotFound("nothing of role " + std::to_string(role) + " holds '" + name.toStdString() +
                   "'");
}

void Visitor::click(const QRect &place)
{
    drag(place.center(), {});
    release();
}

void Visitor::press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(&m_window, &event);
    }
}

void Visitor::type(const QString &text)
{
    for (const QChar character : text)
        press(static_cast<Qt::Key>(character.toUpper().unicode()), {}, character);
}

void Visitor::turnWheel(int steps)
{
    const QPointF middle(m_window.width() / 2.0, m_window.height() / 2.0);
    for (int i = 0; i < qAbs(steps); ++i) {
        QWheelEvent event(middle, m_window.mapToGlobal(middle), {}, {0, steps < 0 ? -120 : 120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        event.setTimestamp(static_cast<quint64>(m_clock.elapsed()));
        QCoreApplication::sendEvent(&m_window, &event);
        wait(glance);
    }
}

void Visitor::drag(const QPoint &from, const QPoint &by)
{
    constexpr int steps = 12;
    m_pointer = from;
    sendMouse(QEvent::MouseMove, m_pointer, Qt::NoButton);
    sendMouse(QEvent::MouseButtonPress, m_pointer, Qt::LeftButton);
    for (int i = 1; i <= steps && !by.isNull(); ++i) {
        wait(16ms);
        m_pointer = from + by * i / steps;
        sendMouse(QEvent::MouseMove, m_pointer, Qt::LeftButton);
    }
    wait(glance);
}

void Visitor::release()
{
    sendMouse(QEvent::MouseButtonRelease, m_pointer, Qt::NoButton);
}

void Visitor::rest()
{
    wait(500ms);
}

void Visitor::sendMouse(QEvent::Type type, const QPointF &at, Qt::MouseButtons down)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, at, m_window.mapToGlobal(at), button, down, Qt::NoModifier);
    event.setTimestamp(static_cast<quint64>(m_clock.elapsed()));
    QCoreApplication::sendEvent(&m_window, &event);
}
