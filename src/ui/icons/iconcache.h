// SPDX-License-Identifier: MIT
#pragma once

#include "base/lrucache.h"

#include <QtGui/QImage>

namespace tolvane {

/// A cache of rendered icons. An icon is rendered once for each size and colour, however many views
/// show it. Main thread.
class IconCache
{
public:
    static IconCache &shared();

    IconCache();

    /// Whether the library has an icon of that name.
    static bool contains(const QString &name);

    /// @param name of an existing icon
    /// @param size in physical pixels, not empty; the icon is centred, as large as fits
    QImage image(const QString &name, const QSize &size, const QColor &color);

private:
    LruCache<QString, QImage> m_images;
};

} // namespace tolvane
