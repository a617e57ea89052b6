// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QStringList>

namespace tolvane {

/// The maximum number of characters in one row, and the maximum cost of their layout.
inline constexpr qsizetype maxChunkLength = 4000;
inline constexpr int maxChunkCost = 14'000;

/// About the number of microseconds for the layout of a text: one for a plain character, and more
/// for markup, combining characters and emoji.
TOLVANE_VIEWS_AUTOTEST_EXPORT int layoutCost(QStringView text);

/// Splits a text into chunks that are cheap to lay out, so that only the visible part of a long
/// message takes time. Splits after a line break or else a space in the last quarter of a chunk, if
/// there is one that is not within markup; otherwise between any two characters. The chunks have
/// all of the text except the line breaks that it was split at. Never empty.
TOLVANE_VIEWS_AUTOTEST_EXPORT QStringList splitIntoChunks(const QString &text);

} // namespace tolvane
