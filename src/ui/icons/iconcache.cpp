// SPDX-License-Identifier: MIT
#include "ui/icons/iconcache.h"

#include "base/sharedinstance.h"

#include <QtCore/QFile>
#include <QtGui/QColor>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace tolvane {

namespace {

QString pathOf(const QString &name)
{
    return QStringLiteral(":/tolvane/icons/%1.svg").arg(name);
}

QImage rendered(const QString &name, const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer icon(pathOf(name));
    icon.setAspectRatioMode(Qt::KeepAspectRatio);
    icon.render(&painter, QRectF(image.rect()));
    if (name.startsWith(QLatin1String("colored/")))
        return image;
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

} // namespace

IconCache &IconCache::shared()
{
    return *sharedInstance<IconCache>();
}

IconCache::IconCache()
    : m_images({.count = 100, .cost = 1'048'576})
{
}

bool IconCache::hasIcon(const QString &name)
{
    return !name.isEmpty() && QFile::exists(pathOf(name));
}

QImage IconCache::image(const QString &name, const QSize &size, const QColor &color)
{
    const QString key = QStringLiteral("%1 %2x%3 %4")
                            .arg(name)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(color.name(QColor::HexArgb));
    if (const QImage *cached = m_images.object(key))
        return *cached;
    QImage image = rendered(name, size, color);
    m_images.insert(key, image, image.sizeInBytes());
    return image;
}

} // namespace tolvane
