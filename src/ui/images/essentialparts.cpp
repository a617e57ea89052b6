// SPDX-License-Identifier: MIT
#include "ui/images/essentialparts.h"

#include <QtCore/QSet>
#include <QtCore/QtEndian>

#include <algorithm>
#include <cstring>

namespace tolvane::images {

namespace {

// A profile of colours has some kilobytes; those of printers have up to two megabytes.
constexpr qsizetype maximumMetadata = 4'194'304;

/// Reads bytes from a position on, which never passes the end.
class Cursor
{
public:
    explicit Cursor(const QByteArray &bytes)
        : m_bytes(bytes)
    {
    }

    qsizetype position() const { return m_at; }
    bool has(qsizetype count) const { return m_bytes.size() - m_at >= count; }
    uchar at(qsizetype offset) const { return uchar(m_bytes[m_at + offset]); }
    const char *data() const { return m_bytes.constData() + m_at; }
    void skip(qint64 count)
    {
        m_at += static_cast<qsizetype>(std::min<qint64>(count, m_bytes.size() - m_at));
    }
    /// Skips to the next byte with this value, or to the end.
    void skipTo(char value)
    {
        const void *found = std::memchr(data(), value, std::size_t(m_bytes.size() - m_at));
        m_at = found ? static_cast<const char *>(found) - m_bytes.constData() : m_bytes.size();
    }
    QByteArrayView since(qsizetype start) const
    {
        return QByteArrayView(m_bytes).sliced(start, m_at - start);
    }

private:
    const QByteArray &m_bytes;
    qsizetype m_at = 0;
};

// JPEG, ITU-T T.81, annex B: segments that begin with 0xFF and a marker.

enum Marker : uchar {
    StartOfFrame = 0xC0,
    HuffmanTables = 0xC4,
    Extension = 0xC8,
    ArithmeticTables = 0xCC,
    FirstRestart = 0xD0,
    LastRestart = 0xD7,
    StartOfImage = 0xD8,
    EndOfImage = 0xD9,
    StartOfScan = 0xDA,
    Application = 0xE0,
    LastApplication = 0xEF,
    Comment = 0xFE,
};

bool isStartOfFrame(uchar marker)
{
    return marker >= StartOfFrame && marker <= StartOfFrame + 15 && marker != HuffmanTables &&
           marker != Extension && marker != ArithmeticTables;
}

bool isProgressive(uchar marker)
{
    return (marker & 3) == 2;
}

/// Whether views need a segment with metadata: the format, the orientation, the colours.
bool isNeeded(uchar marker, QByteArrayView segment)
{
    const QByteArrayView content = segment.sliced(std::min<qsizetype>(4, segment.size()));
    switch (marker) {
    case Application:
    case Application + 14:
        return true;
    case Application + 1:
        return content.startsWith("Exif");
    case Application + 2:
        return content.startsWith("ICC_PROFILE");
    default:
        return false;
    }
}

/// Whether a frame of this size is worth decoding.
bool isPlausible(uchar marker, qint64 pixels, qsizetype byteCount)
{
    // The shortest codes for uniform areas describe some hundred pixels in a byte.
    constexpr qint64 pixelsPerByte = 512;
    constexpr qint64 smallPicture = 1'048'576;
    // The decoder keeps all coefficients of a progressive picture.
    constexpr qint64 largestProgressive = 33'554'432;
    constexpr qint64 largest = 268'435'456;
    return pixels <= smallPicture + byteCount * pixelsPerByte &&
           pixels <= (isProgressive(marker) ? largestProgressive : largest);
}

/// Skips the coded data after the head of a scan.
void skipScanData(Cursor &cursor)
{
    while (cursor.has(2)) {
        cursor.skipTo('\xff');
        if (!cursor.has(2))
            break;
        const uchar next = cursor.at(1);
        if (next != 0 && next != 0xFF && (next < FirstRestart || next > LastRestart))
            return;
        cursor.skip(next == 0xFF ? 1 : 2);
    }
    cursor.skip(2);
}

QByteArray essentialJpeg(const QByteArray &bytes)
{
    // Encoders write ten.
    constexpr int maximumScans = 64;
    QByteArray out;
    out.reserve(bytes.size());
    Cursor cursor(bytes);
    int scans = 0;
    qsizetype metadata = 0;
    while (cursor.has(2)) {
        cursor.skipTo('\xff'); // Decoders skip what stands between segments, too.
        if (!cursor.has(2))
            break;
        const qsizetype start = cursor.position();
        const uchar marker = cursor.at(1);
        if (marker == 0 || marker == 0xFF) {
            cursor.skip(1);
            continue;
        }
        cursor.skip(2);
        if (marker == StartOfImage || (marker >= FirstRestart && marker <= LastRestart)) {
            out.append(cursor.since(start));
            continue;
        }
        if (marker == EndOfImage)
            break;
        if (!cursor.has(2))
            break;
        if (isStartOfFrame(marker) && cursor.has(7)) {
            const auto *size = cursor.data() + 3;
            const qint64 pixels =
                qint64(qFromBigEndian<quint16>(size)) * qFromBigEndian<quint16>(size + 2);
            if (!isPlausible(marker, pixels, bytes.size()))
                return {};
        }
        cursor.skip(qFromBigEndian<quint16>(cursor.data()));
        if (marker == StartOfScan) {
            if (++scans > maximumScans)
                return {};
            skipScanData(cursor);
        }
        const QByteArrayView segment = cursor.since(start);
        const bool isMetadata =
            marker == Comment || (marker >= Application && marker <= LastApplication);
        if (isMetadata) {
            metadata += isNeeded(marker, segment) ? segment.size() : 0;
            if (!isNeeded(marker, segment) || metadata > maximumMetadata)
                continue;
        }
        out.append(segment);
    }
    out.append("\xff\xd9", 2);
    return out;
}

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
    Cursor cursor(bytes);
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

void skipSubBlocks(Cursor &cursor)
{
    while (cursor.has(1) && cursor.at(0) != 0)
        cursor.skip(1 + cursor.at(0));
    cursor.skip(1);
}

QByteArray essentialGif(const QByteArray &bytes)
{
    constexpr qsizetype headSize = 13;
    constexpr qsizetype descriptorSize = 10;
    Cursor cursor(bytes);
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
