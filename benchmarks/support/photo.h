// SPDX-License-Identifier: MIT
#pragma once

#include "testing/ui/samples.h"

#include <QtCore/QRandomGenerator>

namespace tolvane::bench {

/// A JPEG like those of a camera: smooth areas, edges and some noise.
inline QByteArray photo(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator noise(7);
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int grain = int(noise.generate() & 15);
            const int edge = ((x / 97 + y / 61) & 1) * 40;
            line[x] = qRgb((x * 150 / size.width()) + grain + edge, 60 + edge + grain,
                           (y * 150 / size.height()) + grain);
        }
    }
    return test::encodedImage(image, "jpeg", 85);
}

} // namespace tolvane::bench
