// SPDX-License-Identifier: MIT
#include "ui/images/essentialparts.h"

#include "ui/images/bytecursor.h"
#include "ui/images/essentialjpeg.h"

#include <QtCore/QSet>
#include <QtCore/QtEndian>

namespace tolvane::images {

namespace {

// PNG, RFC 2083, 3.2: chunks of a length, a type, data and a checksum.

QByteArray essentialPng(const QByteArray &bytes)
{
    static const QSet<QByteArray> repeated = {"IDAT"};
    static const QSet<QByteArray> single = {"IHDR", "PLTE", "tRNS", "IEND",
                                            "gAMA", "cHRM", "sRGB", "iCCP"};
    constexpr qsizetype signatureSize = 8;
    constexpr qsizetype overhead = 12;
    QByteArray out;
    out.reserve(bytes.size());
    ByteCursor cursor(bytes);
    cursor.skip(signatureSize);
    out.append(cursor.since(0));
    QSet<QByteArray> seen;
    while (cursor.has(overhead - 4)) {
        const qsizetype start = cursor.position();
        const qint64 length = qFromBigEndian<quint32>(cursor.data());
        const QByteArray type(cursor.data() + 4, 4);
        cursor.skip(length + overhead);
        const bool isOnce = single.contains(type) && !seen.contains(type) &&
                            (type != "iCCP" || length <= maximumMetadata);
        if (isOnce || repeated.contains(type))
            out.append(cursor.since(start));
        seen.insert(type);
    }
    return out;
}

// GIF89a, sections 17 to 27.

/// The size of a table of colours that a packed field announces.
qsizetype colorTableSize(uchar packed)
{
    return packed & 0x80 ? qsizetype(3) << ((packed & 7) + 1) : 0;
}

void skipSubBlocks(ByteCursor &cursor)
{
    while (cursor.has(1) && cursor.at(0) != 0)
        cursor.skip(1 + cursor.at(0));
    cursor.skip(1);
}

QByteArray essentialGif(const QByteArray &bytes)
{
    constexpr qsizetype headSize = 13;
    constexpr qsizetype descriptorSize = 10;
    ByteCursor cursor(bytes);
    if (!cursor.has(headSize))
        return {};
    cursor.skip(headSize + colorTableSize(cursor.at(10)));
    QByteArray out = cursor.since(0).toByteArray();
    while (cursor.has(2)) {
        const qsizetype start = cursor.position();
        const uchar kind = cursor.at(0);
        if (kind == ',') {
            if (!cursor.has(descriptorSize))
                break;
            cursor.skip(descriptorSize + colorTableSize(cursor.at(9)) + 1);
            skipSubBlocks(cursor);
            out.append(cursor.since(start));
            break;
        }
        if (kind != '!')
            break;
        const bool isGraphicControl = cursor.at(1) == 0xF9;
        cursor.skip(2);
        skipSubBlocks(cursor);
        if (isGraphicControl)
            out.append(cursor.since(start));
    }
    out += ';';
    return out;
}

} // namespace

QByteArray essentialParts(const QByteArray &bytes, const QByteArray &format)
{
    if (format == "jpeg")
        return essentialJpeg(bytes);
    if (format == "png")
        return essentialPng(bytes);
    if (format == "gif")
        return essentialGif(bytes);
    return bytes;
}

} // namespace tolvane::images
