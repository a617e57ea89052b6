// SPDX-License-Identifier: MIT
#include "testing/ui/uirobot.h"

#include "testing/ui/accessibletree.h"
#include "testing/waitfor.h"

#include <QtGui/QWheelEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>

namespace tolvane::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto pollInterval = 60ms;

QList<QRect> layoutOf(QWindow &window)
{
    QList<QRect> rects;
    for (const AccessibleNode &node : accessibleTree(window))
        rects += node.rect;
    return rects;
}

} // namespace

UiRobot::UiRobot(QWindow &window)
    : m_window(window)
{
    m_clock.start();
}

QRect UiRobot::rectOf(QAccessible::Role role, const QString &name) const
{
    const QRect visible(m_window.mapToGlobal(QPoint()), m_window.size());
    for (const AccessibleNode &node : accessibleTree(m_window)) {
        if (node.role == role && node.name.contains(name) && !node.rect.isEmpty() &&
            visible.contains(node.rect.center()))
            return node.rect.translated(-visible.topLeft());
    }
    return {};
}

QRect UiRobot::find(QAccessible::Role role, const QString &name)
{
    QRect rect;
    waitFor(u"an element of role %1 named \"%2\""_s.arg(role).arg(name), [&] {
        const QRect previous = std::exchange(rect, rectOf(role, name));
        if (!rect.isEmpty() && rect == previous)
            return true;
        wait(pollInterval);
        return false;
    });
    return rect;
}

void UiRobot::click(const QRect &rect, Qt::MouseButton button)
{
    moveTo(rect.center());
    QTest::mousePress(&m_window, button, {}, m_pointer);
    wait(pollInterval);
    QTest::mouseRelease(&m_window, button, {}, m_pointer);
}

void UiRobot::press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(&m_window, &event);
    }
}

void UiRobot::type(const QString &text)
{
    for (const QChar character : text)
        press(static_cast<Qt::Key>(character.toUpper().unicode()), {}, character);
}

void UiRobot::moveFocus(Qt::Key key, QAccessible::Role role, const QString &name)
{
    constexpr int limit = 40;
    QStringList reached;
    for (int count = 0; count < limit; ++count) {
        const AccessibleNode focus = focusedNode(m_window);
        if (focus.role == role && focus.name.contains(name))
            return;
        reached += focus.name;
        press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        wait(pollInterval);
    }
    throw std::runtime_error("the focus does not reach \"" + name.toStdString() + "\", but " +
                             reached.join(u", "_s).toStdString());
}

void UiRobot::turnWheel(int steps, const QRect &over)
{
    const QPointF position =
        (over.isNull() ? QRect(QPoint(), m_window.size()) : over).toRectF().center();
    for (int i = 0; i < qAbs(steps); ++i) {
        QWheelEvent event(position, m_window.mapToGlobal(position), {}, {0, steps < 0 ? -120 : 120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        event.setTimestamp(static_cast<quint64>(m_clock.elapsed()));
        QCoreApplication::sendEvent(&m_window, &event);
        wait(pollInterval);
    }
}

void UiRobot::drag(const QPoint &from, const QPoint &offset)
{
    constexpr int steps = 12;
    moveTo(from);
    QTest::mousePress(&m_window, Qt::LeftButton, {}, from);
    for (int i = 1; i <= steps && !offset.isNull(); ++i)
        moveTo(from + offset * i / steps, 16ms);
    wait(pollInterval);
}

void UiRobot::release()
{
    QTest::mouseRelease(&m_window, Qt::LeftButton, {}, m_pointer);
}

void UiRobot::moveTo(const QPoint &position, std::chrono::milliseconds after)
{
    m_pointer = position;
    QTest::mouseMove(&m_window, position, int(after.count()));
}

void UiRobot::waitForAnimations()
{
    // Fades change no rectangle; the longest one in the messenger takes less than this.
    constexpr int equalLayouts = 6;
    QList<QRect> layout;
    int equal = 0;
    waitFor(u"the end of all animations"_s, [&] {
        wait(pollInterval);
        const QList<QRect> previous = std::exchange(layout, layoutOf(m_window));
        equal = layout == previous ? equal + 1 : 0;
        return equal == equalLayouts;
    });
}

} // namespace tolvane::test
