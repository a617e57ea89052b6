// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane {

/// The number of characters that a person sees: grapheme clusters (Unicode Annex 29). A family
/// emoji is one.
qsizetype characterCount(const QString &text);

} // namespace tolvane
