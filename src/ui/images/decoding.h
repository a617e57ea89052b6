// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QSize>
#include <QtGui/QImage>

/// From bytes that anybody may have sent to a picture. Formats are PNG, JPEG, GIF (its first frame)
/// and WebP, told by their content. Orientation and colour profile are applied, and what comes out
/// is in the form that renderers take as it is. Everything is safe from any thread.
namespace tolvane::images {

/// Pictures of more pixels are not decoded whole. It is what fits into 128 MiB, the most that the
/// image reader allocates by itself.
inline constexpr qint64 maximumPixels = 33'554'432;

/// Pictures of up to so many pixels in so many bytes are cheap enough to be decoded whole at any
/// time.
inline constexpr qint64 modestPixels = 2'097'152;
inline constexpr qsizetype modestBytes = 4'194'304;

/// The size that the bytes claim, without decoding them. Invalid when they are no picture.
TOLVANE_VIEWS_AUTOTEST_EXPORT QSize claimedSize(const QByteArray &bytes);

/// Whether the bytes claim a picture of modest size.
TOLVANE_VIEWS_AUTOTEST_EXPORT bool isModest(const QByteArray &bytes);

/// Null when the bytes are no picture, or one that is too large. A JPEG that is too large comes
/// smaller.
TOLVANE_VIEWS_AUTOTEST_EXPORT QImage decoded(const QByteArray &bytes);

/// The picture scaled down as thumbnail() does it, without decoding it whole where the format
/// allows. Null when the bytes are no picture.
TOLVANE_VIEWS_AUTOTEST_EXPORT QImage decodedThumbnail(const QByteArray &bytes, const QSize &target);

/// The picture scaled down so that it just fills the target, in pixels, and keeps its aspect ratio.
/// Very long ones are kept to four times the target's area. A picture that is no larger is given
/// back as it is.
TOLVANE_VIEWS_AUTOTEST_EXPORT QImage thumbnail(const QImage &image, const QSize &target);

} // namespace tolvane::images
