// SPDX-License-Identifier: MIT
#include "ui/presentation/keyguard.h"

#include "ui/home/screendata.h"

#include <QtGui/QKeyEvent>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

#include <algorithm>
#include <array>

namespace tolvane {

namespace {

constexpr std::array navigationKeys = {
    Qt::Key_Escape, Qt::Key_Return,    Qt::Key_Enter,    Qt::Key_Space,   Qt::Key_Tab,
    Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Up,       Qt::Key_Down,    Qt::Key_Home,
    Qt::Key_End,    Qt::Key_PageUp,    Qt::Key_PageDown, Qt::Key_Backtab, Qt::Key_Menu,
    Qt::Key_Delete, Qt::Key_Backspace,
};

bool isText(const QKeyEvent &event)
{
    return !event.text().isEmpty() && event.text().at(0).isPrint();
}

} // namespace

KeyGuard::KeyGuard(QQuickItem &view, ScreenData &screen)
    : QObject(&view)
    , m_view(view)
    , m_screen(screen)
{
    connect(&view, &QQuickItem::windowChanged, this, &KeyGuard::watch);
    watch(view.window());
}

void KeyGuard::watch(QQuickWindow *window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (m_window)
        m_window->installEventFilter(this);
}

bool KeyGuard::hasFocus() const
{
    const QQuickItem *item = m_window->activeFocusItem();
    if (!item || item == &m_view || m_view.isAncestorOf(item))
        return item;
    // A menu of the messenger, which is above its view.
    while (item->parentItem() && item->parentItem() != m_window->contentItem())
        item = item->parentItem();
    return item->z() > m_view.z() && m_view.z() > 0;
}

bool KeyGuard::isUsed(const QKeyEvent &event) const
{
    const bool hasPage = !m_screen.navigation()->isEmpty();
    const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (modifiers == Qt::AltModifier)
        return hasPage && (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right);
    const bool sends = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (modifiers != Qt::NoModifier)
        return hasPage &&
               (event.matches(QKeySequence::Copy) || (modifiers == Qt::ControlModifier && sends));
    if (event.key() == Qt::Key_Escape && m_screen.isEmbedded())
        return hasPage; // On the home screen it is the host's.
    return std::ranges::find(navigationKeys, event.key()) != navigationKeys.end() ||
           (hasPage && isText(event));
}

bool KeyGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && hasFocus() &&
        isUsed(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tolvane
