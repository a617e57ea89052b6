// SPDX-License-Identifier: MIT
#include "testing/ui/accessibletree.h"

#include <QtGui/QWindow>

#include <algorithm>

namespace tolvane::test {

namespace {

void collect(QAccessibleInterface *element, int parent, QList<AccessibleNode> &tree)
{
    if (!element || !element->isValid() || element->state().invisible)
        return;
    const QAccessible::State state = element->state();
    const int index = int(tree.size());
    tree += {.id = QAccessible::uniqueId(element),
             .name = element->text(QAccessible::Name),
             .role = element->role(),
             .rect = element->rect(),
             .isFocusable = bool(state.focusable),
             .isFocused = bool(state.focused),
             .parent = parent};
    for (int i = 0; i < element->childCount(); ++i)
        collect(element->child(i), index, tree);
}

} // namespace

QList<AccessibleNode> accessibleTree(QWindow &window)
{
    QList<AccessibleNode> tree;
    collect(window.accessibleRoot(), -1, tree);
    return tree;
}

AccessibleNode focusedNode(QWindow &window)
{
    const QList<AccessibleNode> tree = accessibleTree(window);
    const auto focused = std::find_if(tree.rbegin(), tree.rend(), [](const AccessibleNode &node) {
        return node.isFocused && node.parent >= 0;
    });
    return focused == tree.rend() ? AccessibleNode() : *focused;
}

} // namespace tolvane::test
