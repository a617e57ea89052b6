// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtGui/QImage>

namespace tolvane {

/// A picture as a JPEG file that is given away: what is in it, and what it wants to be called.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT ImageFile
{
    QByteArray data;
    QString filename;

    /// "image_1718031234.567.jpg": the seconds since 1970.
    static QString filenameAt(const QDateTime &time);
};

/// The picture as a JPEG of quality 0.85, on white where it is transparent. Empty when it cannot be
/// encoded. Safe from any thread, and meant for another than the main one.
QByteArray jpeg(const QImage &image);

} // namespace tolvane
