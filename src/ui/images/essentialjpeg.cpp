// SPDX-License-Identifier: MIT
#include "ui/images/essentialjpeg.h"

#include "ui/images/bytecursor.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace tolvane::images {

namespace {

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

/// True for metadata that views need: the format, the orientation, the colours.
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

/// False if the bytes cannot describe so many pixels, or if decoding would take too much memory.
bool isPlausible(uchar marker, qint64 pixels, qsizetype byteCount)
{
    // In uniform areas, the shortest codes describe some hundred pixels in a byte.
    constexpr qint64 pixelsPerByte = 512;
    constexpr qint64 smallPicture = 1'048'576;
    // The decoder keeps all coefficients of a progressive picture.
    constexpr qint64 largestProgressive = 33'554'432;
    constexpr qint64 largest = 268'435'456;
    return pixels <= smallPicture + byteCount * pixelsPerByte &&
           pixels <= (isProgressive(marker) ? largestProgressive : largest);
}

/// Skips the coded data after the head of a scan.
void skipScanData(ByteCursor &cursor)
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

/// Copies the essential segments of a JPEG.
class JpegFilter
{
public:
    explicit JpegFilter(const QByteArray &bytes)
        : m_cursor(bytes)
        , m_byteCount(bytes.size())
    {
        m_out.reserve(bytes.size());
    }

    QByteArray filtered()
    {
        Outcome outcome = Outcome::proceed;
        while (outcome == Outcome::proceed)
            outcome = copyNext();
        if (outcome == Outcome::reject)
            return {};
        m_out.append("\xff\xd9", 2);
        return m_out;
    }

private:
    enum class Outcome { proceed, end, reject };

    Outcome copyNext();
    Outcome copySegment(uchar marker, qsizetype start);
    bool isAcceptable(uchar marker);
    bool isEssential(uchar marker, QByteArrayView segment);

    ByteCursor m_cursor;
    const qsizetype m_byteCount;
    QByteArray m_out;
    int m_scans = 0;
    qsizetype m_metadataSize = 0;
};

JpegFilter::Outcome JpegFilter::copyNext()
{
    m_cursor.skipTo('\xff'); // Decoders also skip bytes between segments.
    if (!m_cursor.has(2))
        return Outcome::end;
    const qsizetype start = m_cursor.position();
    const uchar marker = m_cursor.at(1);
    if (marker == 0 || marker == 0xFF) {
        m_cursor.skip(1);
        return Outcome::proceed;
    }
    m_cursor.skip(2);
    if (marker == StartOfImage || (marker >= FirstRestart && marker <= LastRestart)) {
        m_out.append(m_cursor.since(start));
        return Outcome::proceed;
    }
    if (marker == EndOfImage || !m_cursor.has(2))
        return Outcome::end;
    return copySegment(marker, start);
}

JpegFilter::Outcome JpegFilter::copySegment(uchar marker, qsizetype start)
{
    if (!isAcceptable(marker))
        return Outcome::reject;
    m_cursor.skip(qFromBigEndian<quint16>(m_cursor.data()));
    if (marker == StartOfScan)
        skipScanData(m_cursor);
    const QByteArrayView segment = m_cursor.since(start);
    if (isEssential(marker, segment))
        m_out.append(segment);
    return Outcome::proceed;
}

bool JpegFilter::isAcceptable(uchar marker)
{
    constexpr int maximumScans = 64; // Encoders write ten.
    if (marker == StartOfScan)
        return ++m_scans <= maximumScans;
    if (!isStartOfFrame(marker) || !m_cursor.has(7))
        return true;
    const char *size = m_cursor.data() + 3;
    const qint64 height = qFromBigEndian<quint16>(size);
    const qint64 width = qFromBigEndian<quint16>(size + 2);
    return isPlausible(marker, width * height, m_byteCount);
}

bool JpegFilter::isEssential(uchar marker, QByteArrayView segment)
{
    if (marker != Comment && (marker < Application || marker > LastApplication))
        return true;
    if (!isNeeded(marker, segment))
        return false;
    m_metadataSize += segment.size();
    return m_metadataSize <= maximumMetadata;
}

} // namespace

QByteArray essentialJpeg(const QByteArray &bytes)
{
    return JpegFilter(bytes).filtered();
}

} // namespace tolvane::images
