// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane {

/// The family of the system's font with coloured emoji; empty without one, and in a process without
/// windows.
const QString &emojiFamily();

/// Encloses each run of emoji in an HTML text in an element with that font. The fonts of texts have
/// some emoji in black and lack the sequences: flags and families would fall apart.
QString withEmojiFont(const QString &html, const QString &family);

} // namespace tolvane
