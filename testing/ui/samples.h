// SPDX-License-Identifier: MIT
#pragma once

#include "platform/network/urlsession.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>

namespace tolvane::test {

inline QImage solidImage(const QSize &size, const QColor &color,
                         QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, format);
    image.fill(color);
    return image;
}

inline QByteArray encodedImage(const QImage &image, const char *format, int quality = 95)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, quality);
    return bytes;
}

/// A response with a PNG in one colour.
inline UrlResponse pictureResponse(const QSize &size, const QColor &color = Qt::red)
{
    return {.status = 200, .headers = {}, .body = encodedImage(solidImage(size, color), "png")};
}

inline UrlRequest requestFor(const QUrl &url)
{
    UrlRequest request;
    request.url = url;
    return request;
}

/// Adds an orientation to a JPEG (Exif 2.3, tag 0x112).
inline QByteArray withOrientation(const QByteArray &jpeg, char orientation)
{
    QByteArray exif = QByteArray::fromHex("ffe100224578696600004d4d002a00000008"
                                          "000101120003000000010000000000000000");
    exif[exif.size() - 7] = orientation;
    return jpeg.first(2) + exif + jpeg.sliced(2);
}

} // namespace tolvane::test
