// SPDX-License-Identifier: MIT
#pragma once

#include "base/lrucache.h"

#include <QtGui/QImage>

namespace tolvane {

/// The icons as they were drawn last. One is drawn once for each size and colour, however many
/// views show it. Main thread.
class IconCache
{
public:
    static IconCache &shared();

    IconCache();

    /// Whether the library has an icon of that name.
    static bool has(const QString &name);

    /// @param name of an icon that there is
    /// @param size in pixels, not empty; the icon is in the middle, as large as fits
    QImage image(const QString &name, const QSize &size, const QColor &color);

private:
    LruCache<QString, QImage> m_images;
};

} // namespace tolvane
