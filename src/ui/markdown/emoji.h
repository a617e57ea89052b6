// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane {

/// The family of the system's font with coloured emoji; empty if there is no such font, or if the
/// process has no QGuiApplication.
const QString &emojiFamily();

/// Encloses each run of emoji in an HTML text in an element with that font. Fonts for texts have
/// some emoji in black, and no sequences: flags and families would be drawn as several characters.
QString withEmojiFont(const QString &html, const QString &family);

} // namespace tolvane
