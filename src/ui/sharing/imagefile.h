// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtGui/QImage>

namespace tolvane {

/// A picture as a JPEG file to be shared: its bytes and its name.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ImageFile
{
    QByteArray data;
    QString filename;

    /// "image_1718031234.567.jpg": the seconds since 1970.
    static QString filenameAt(const QDateTime &time);
};

/// Encodes a picture as a JPEG of quality 0.85; transparent parts become white. Empty if it cannot
/// be encoded. Safe from any thread; too slow for the main thread.
QByteArray jpeg(const QImage &image);

} // namespace tolvane
