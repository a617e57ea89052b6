// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane {

/// The number of user-perceived characters: grapheme clusters (Unicode Annex 29). A family emoji
/// counts as one.
qsizetype characterCount(const QString &text);

} // namespace tolvane
