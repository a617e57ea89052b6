// SPDX-License-Identifier: MIT
#pragma once

#include "base/lrucache.h"

#include <QtGui/QImage>

namespace tolvane {

/// Renders each icon once for each size and colour, and shares the image between all views. Main
/// thread.
class IconCache
{
public:
    static IconCache &shared();

    IconCache();

    /// True if the library has an icon of that name.
    static bool hasIcon(const QString &name);

    /// @param name of an existing icon
    /// @param size in physical pixels, not empty; the icon is centred, as large as fits
    QImage image(const QString &name, const QSize &size, const QColor &color);

    void clear() { m_images.clear(); }

private:
    LruCache<QString, QImage> m_images;
};

} // namespace tolvane
