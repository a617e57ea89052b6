// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QSize>
#include <QtGui/QImage>

#include <chrono>

/// Decodes pictures from untrusted bytes. Formats are PNG, JPEG, GIF (its first frame) and WebP,
/// detected by their content. Orientation and colour profile are applied, and the result has a
/// format that renderers use without conversion. All functions are thread-safe.
namespace tolvane::images {

/// Pictures with more pixels are not decoded at full size. So many pixels take 128 MiB, the default
/// allocation limit of QImageReader.
inline constexpr qint64 maximumPixels = 33'554'432;

/// Pictures of up to this many pixels in up to this many bytes are cheap enough to be decoded at
/// full size at any time.
inline constexpr qint64 maximumCheapPixels = 2'097'152;
inline constexpr qsizetype maximumCheapBytes = 4'194'304;

/// The largest photo takes less than a second. Decoding fails after this time.
inline constexpr std::chrono::milliseconds maximumDecodingTime{5000};

/// The size that the bytes declare, without decoding them. Invalid if they are not a picture.
TOLVANE_VIEWS_AUTOTEST_EXPORT QSize declaredSize(const QByteArray &bytes);

/// Whether the bytes declare a picture that is cheap to decode at full size.
TOLVANE_VIEWS_AUTOTEST_EXPORT bool isCheapToDecode(const QByteArray &bytes);

/// Null if the bytes are not a picture, or if the picture is too large. A JPEG that is too large is
/// decoded at a smaller size.
/// @param limit decoding fails soon after this time
TOLVANE_VIEWS_AUTOTEST_EXPORT QImage decoded(const QByteArray &bytes,
                                             std::chrono::milliseconds limit = maximumDecodingTime);

/// The picture scaled down as by thumbnail(), without decoding it at full size if the format allows
/// that. Null if the bytes are not a picture.
TOLVANE_VIEWS_AUTOTEST_EXPORT QImage decodedThumbnail(const QByteArray &bytes, const QSize &target);

/// The picture scaled down until it just covers the target (a size in physical pixels), with the
/// same aspect ratio. Very long pictures are limited to four times the target's area. A picture
/// that is not larger is returned unchanged.
TOLVANE_VIEWS_AUTOTEST_EXPORT QImage thumbnail(const QImage &image, const QSize &target);

} // namespace tolvane::images
