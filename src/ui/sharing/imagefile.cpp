// SPDX-License-Identifier: MIT
#include "ui/sharing/imagefile.h"

#include <QtCore/QBuffer>
#include <QtCore/QLocale>
#include <QtGui/QImageWriter>
#include <QtGui/QPainter>

namespace tolvane {

namespace {

constexpr double jpegQuality = 0.85;

QImage opaque(const QImage &image)
{
    if (!image.hasAlphaChannel())
        return image;
    QImage background(image.size(), QImage::Format_RGB32);
    background.fill(Qt::white);
    QPainter(&background).drawImage(0, 0, image);
    return background;
}

} // namespace

QString ImageFile::filenameAt(const QDateTime &time)
{
    const double seconds = double(time.toMSecsSinceEpoch()) / 1000;
    QString number = QString::number(seconds, 'f', QLocale::FloatingPointShortest);
    if (!number.contains(QLatin1Char('.')))
        number += QLatin1String(".0");
    return QStringLiteral("image_%1.jpg").arg(number);
}

QByteArray jpeg(const QImage &image)
{
    if (image.isNull())
        return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(qRound(jpegQuality * 100));
    return writer.write(opaque(image)) ? bytes : QByteArray();
}

} // namespace tolvane
