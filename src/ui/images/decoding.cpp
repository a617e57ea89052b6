// SPDX-License-Identifier: MIT
#include "ui/images/decoding.h"

#include "platform/async/shutdownhook.h"
#include "ui/images/essentialparts.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QIODevice>
#include <QtCore/QtEndian>
#include <QtGui/QColorSpace>
#include <QtGui/QImageReader>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace tolvane::images {

namespace {

struct Signature
{
    const char *format;
    std::size_t offset;
    std::string_view bytes;
};

using namespace std::string_view_literals;

// Only these formats reach a decoder: the host may have plug-ins for formats that run scripts or
// read files.
constexpr std::array signatures = {
    Signature{"png", 0, "\x89PNG\r\n\x1a\n"sv},
    Signature{"jpeg", 0, "\xff\xd8\xff"sv},
    Signature{"gif", 0, "GIF8"sv},
    Signature{"webp", 8, "WEBP"sv},
};

QByteArray formatOf(const QByteArray &bytes)
{
    const std::string_view content(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    for (const Signature &signature : signatures) {
        if (content.size() > signature.offset &&
            content.substr(signature.offset).starts_with(signature.bytes))
            return signature.format;
    }
    return {};
}

/// The size of a GIF's logical screen. The decoder allocates the whole screen, even if the first
/// frame is smaller.
QSize logicalScreenSize(const QByteArray &gif)
{
    constexpr qsizetype offset = 6;
    constexpr qsizetype length = 4;
    if (gif.size() < offset + length)
        return {};
    const char *field = gif.constData() + offset;
    return {qFromLittleEndian<quint16>(field), qFromLittleEndian<quint16>(field + 2)};
}

qint64 pixelCount(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

/// The size times a factor, at least one pixel by one.
QSize scaledBy(const QSize &size, double factor)
{
    return QSize(qRound(size.width() * factor), qRound(size.height() * factor))
        .expandedTo(QSize(1, 1));
}

/// A device with bytes, which fails when the decoder has taken too long or the process ends. (It
/// must not be a QBuffer, whose bytes the JPEG decoder takes without reading from the device.)
class TimedBytes final : public QIODevice
{
public:
    explicit TimedBytes(std::chrono::milliseconds limit)
        : m_deadline(limit)
    {
    }

    /// @param step the number of bytes after which the time is checked
    void setBytes(const QByteArray &bytes, qint64 step)
    {
        m_bytes = bytes;
        m_step = step;
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool hasTimedOut() const { return m_deadline.hasExpired() || isShuttingDown(); }

    qint64 size() const override { return m_bytes.size(); }
    bool seek(qint64 position) override
    {
        m_at = std::clamp<qint64>(position, 0, size());
        return QIODevice::seek(position);
    }

protected:
    qint64 readData(char *data, qint64 maximum) override
    {
        const qint64 count = std::min({maximum, m_step, size() - m_at});
        if (count <= 0 || hasTimedOut())
            return -1;
        std::copy_n(m_bytes.constData() + m_at, count, data);
        m_at += count;
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    const QDeadlineTimer m_deadline;
    QByteArray m_bytes;
    qint64 m_step = 0;
    qint64 m_at = 0;
};

/// Reads one picture from bytes.
class Reader
{
public:
    explicit Reader(const QByteArray &bytes, std::chrono::milliseconds limit = maximumDecodingTime)
        : m_bytes(limit)
    {
        const QByteArray format = formatOf(bytes);
        if (format.isEmpty())
            return;
        const QByteArray parts = essentialParts(bytes, format);
        if (parts.isEmpty())
            return;
        // A scan of a JPEG may be short, but the decoder processes all pixels for each.
        constexpr qint64 scanStep = 64;
        m_bytes.setBytes(parts, format == "jpeg" ? scanStep : parts.size());
        m_reader.setAutoDetectImageFormat(false);
        m_reader.setFormat(format);
        m_reader.setDevice(&m_bytes);
        m_reader.setAutoTransform(true);
        m_scalesWhileDecoding = format == "jpeg";
        m_size = m_reader.size();
        if (format == "gif" && m_size.isValid())
            m_size = m_size.expandedTo(logicalScreenSize(bytes));
    }

    /// The size as it is stored, before orientation applies. Invalid if the bytes are not a
    /// picture.
    const QSize &size() const { return m_size; }
    bool isTurnedSideways()
    {
        return m_reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    }
    double readableFactor() const;
    QImage read(double factor);

private:
    TimedBytes m_bytes;
    QImageReader m_reader;
    QSize m_size;
    bool m_scalesWhileDecoding = false;
};

/// Converts to 32 bits a pixel in sRGB, which textures and painters use without conversion.
QImage convertedForRendering(QImage image)
{
    static const QColorSpace standard(QColorSpace::SRgb);
    const QColorSpace space = image.colorSpace();
    if (space.isValid() && space != standard)
        image.convertToColorSpace(standard);
    return std::move(image).convertToFormat(
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

/// The factor for scaling down with which the picture can be read in bounded memory; 0 if it cannot
/// be read.
double Reader::readableFactor() const
{
    if (m_size.isEmpty())
        return 0;
    double factor = 1;
    // The decoder scales by powers of two only. For other factors, it takes as much memory as for
    // the next larger power.
    while (pixelCount(scaledBy(m_size, factor)) > maximumPixels)
        factor /= 2;
    return factor == 1 || m_scalesWhileDecoding ? factor : 0;
}

QImage Reader::read(double factor)
{
    if (factor == 0)
        return {};
    if (factor < 1)
        m_reader.setScaledSize(scaledBy(m_size, factor));
    QImage image;
    if (!m_reader.read(&image) || m_bytes.hasTimedOut())
        return {};
    return convertedForRendering(std::move(image));
}

/// The factor for scaling down to a thumbnail; 1 for a picture that stays as it is.
double thumbnailFactor(const QSize &size, const QSize &target)
{
    constexpr double largestArea = 4;
    if (target.isEmpty() || size.isEmpty())
        return 1;
    const double covering =
        std::max(double(target.width()) / size.width(), double(target.height()) / size.height());
    const double bounded =
        std::sqrt(largestArea * double(pixelCount(target)) / double(pixelCount(size)));
    return std::min({covering, bounded, 1.0});
}

} // namespace

QSize declaredSize(const QByteArray &bytes)
{
    return Reader(bytes).size();
}

bool isCheapToDecode(const QByteArray &bytes)
{
    if (bytes.size() > maximumCheapBytes)
        return false;
    const QSize size = declaredSize(bytes);
    return !size.isEmpty() && pixelCount(size) <= maximumCheapPixels;
}

QImage decoded(const QByteArray &bytes, std::chrono::milliseconds limit)
{
    Reader reader(bytes, limit);
    return reader.read(reader.readableFactor());
}

QImage decodedThumbnail(const QByteArray &bytes, const QSize &target)
{
    Reader reader(bytes);
    const QSize box = reader.isTurnedSideways() ? target.transposed() : target;
    return reader.read(std::min(reader.readableFactor(), thumbnailFactor(reader.size(), box)));
}

QImage thumbnail(const QImage &image, const QSize &target)
{
    const double factor = thumbnailFactor(image.size(), target);
    if (factor >= 1)
        return image;
    return image.scaled(scaledBy(image.size(), factor), Qt::IgnoreAspectRatio,
                        Qt::SmoothTransformation);
}

} // namespace tolvane::images
