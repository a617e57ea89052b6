// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QAccessible>

class QWindow;

namespace tolvane::test {

/// One element as assistive technology sees it.
struct AccessibleNode
{
    QAccessible::Id id = 0;
    QString name;
    QAccessible::Role role = QAccessible::NoRole;
    /// On the screen, in pixels.
    QRect rect;
    bool isFocusable = false;
    bool isFocused = false;
    /// Index in the tree, -1 for the window.
    int parent = -1;
};

/// The visible elements of a window in reading order, each before its children.
QList<AccessibleNode> accessibleTree(QWindow &window);

/// The innermost element with the focus; with the id 0 without one.
AccessibleNode focusedNode(QWindow &window);

} // namespace tolvane::test
