// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

namespace tolvane::images {

/// Removes the parts of a picture that views do not need: comments, texts, thumbnails, frames after
/// the first, and too long metadata. Decoders may take a long time or much memory for them. Empty
/// for a JPEG with more scans than encoders write, or with far more pixels than its bytes can
/// describe. The time is linear in the size of the picture.
///
/// @param format "jpeg", "png" or "gif"; pictures in other formats are returned unchanged
QByteArray essentialParts(const QByteArray &bytes, const QByteArray &format);

} // namespace tolvane::images
