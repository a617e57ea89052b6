// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

namespace tolvane::images {

/// The limit of metadata. A colour profile has some kilobytes; those of printers have up to two
/// megabytes.
inline constexpr qsizetype maximumMetadata = 4'194'304;

/// essentialParts() of a JPEG. Empty if the picture has too many scans or pixels.
QByteArray essentialJpeg(const QByteArray &bytes);

} // namespace tolvane::images
