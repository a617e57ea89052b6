// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QStringList>

namespace tolvane {

/// The maximum number of characters in one row, and the maximum cost of their layout.
inline constexpr qsizetype maxChunkLength = 4000;
inline constexpr int maxChunkCost = 14'000;

/// An estimate of the time for the layout of a text, in microseconds: one for a plain character,
/// and more for markup, combining characters and emoji.
TOLVANE_VIEWS_AUTOTEST_EXPORT int layoutCost(QStringView text);

/// Splits a text into chunks that are cheap to lay out, so that only the visible part of a long
/// message takes time. Splits after a line break in the last quarter of a chunk, else after a space
/// there (preferably outside of markup), else between any two characters. The chunks contain the
/// whole text except for the line breaks at which it was split. The result has at least one chunk.
TOLVANE_VIEWS_AUTOTEST_EXPORT QStringList splitIntoChunks(const QString &text);

} // namespace tolvane
