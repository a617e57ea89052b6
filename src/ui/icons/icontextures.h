// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QImage>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGTexture>

#include <memory>

namespace tolvane {

/// The texture of a picture in a window, for as long as somebody holds it. All items that show the
/// same picture share it, so that the renderer draws them at once, and none is in Qt's atlas, which
/// has as many pixels as the window. Render thread.
std::shared_ptr<QSGTexture> sharedTexture(QQuickWindow &window, const QImage &image);

} // namespace tolvane
