// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QStringList>

namespace tolvane {

/// The most characters that one row shows.
inline constexpr qsizetype longestPart = 4000;

/// A text in parts that are cheap to lay out, so that a message of any length costs only what is
/// seen of it. Cut at the end of a line if there is one in the last quarter, else behind a blank,
/// else anywhere, but in no character. All of the text is in the parts, but for the line ends that
/// it was cut at. Never empty.
TOLVANE_VIEWS_AUTOTEST_EXPORT QStringList partsOf(const QString &text);

} // namespace tolvane
