// SPDX-License-Identifier: MIT
#include "screen.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>

#include <cstdlib>
#include <stdexcept>

namespace tolvane::peers {

QImage Screen::picture()
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, 0, 0, 480, 800)
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

int Screen::agentPixels()
{
    constexpr int tolerance = 4;
    const QImage image = picture();
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            found += std::abs(qRed(line[x]) - qRed(agentColor)) < tolerance &&
                     std::abs(qGreen(line[x]) - qGreen(agentColor)) < tolerance &&
                     std::abs(qBlue(line[x]) - qBlue(agentColor)) < tolerance;
        }
    }
    return found;
}

double Screen::waitForMoreThan(int before)
{
    // A good part of the bubble of a short text.
    constexpr int pixels = 400;
    constexpr qint64 longest = 30'000;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < longest) {
        if (agentPixels() >= before + pixels)
            return double(timer.nsecsElapsed()) / 1e6;
        QThread::msleep(1);
    }
    picture().save(QStringLiteral("missing-message.png"));
    throw std::runtime_error("The message is not on the screen; see missing-message.png");
}

} // namespace tolvane::peers
