// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

namespace tolvane::images {

/// A picture without the parts that views do not need: comments, texts, thumbnails, frames after
/// the first. Decoders take a long time or much memory for thousands of them, and for the parts
/// that are bounded here. Empty for a picture that is refused: a JPEG with more scans than encoders
/// write, or with far more pixels than its bytes can describe. The time is linear in the size of
/// the picture.
///
/// @param format "jpeg", "png" or "gif"; any other format is returned as it is
QByteArray essentialParts(const QByteArray &bytes, const QByteArray &format);

} // namespace tolvane::images
