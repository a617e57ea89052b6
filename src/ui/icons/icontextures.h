// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QImage>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGTexture>

#include <memory>

namespace tolvane {

/// The texture of a picture in a window; it exists as long as an item holds it. All items that show
/// the same picture share the texture, so that the renderer draws them in one batch. It is not part
/// of Qt's atlas, which has as many pixels as the window. Render thread.
std::shared_ptr<QSGTexture> sharedTexture(QQuickWindow &window, const QImage &image);

} // namespace tolvane
