// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane {

/// A name as one line of bounded length, isolated so that it neither reorders the text around it
/// nor decides the direction of that text. Empty if nothing of the name is visible.
QString isolatedText(const QString &name);

/// The text with at most six combining marks in a row: more would be drawn over other rows, and
/// take long to lay out. No script stacks as many.
QString withoutMarkStacks(const QString &text);

} // namespace tolvane
