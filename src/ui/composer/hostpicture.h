// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtGui/QImage>

class QQuickItem;

/// A picture of the host's window, without the messenger. Never shows anything else of the screen.
namespace tolvane::hostpicture {

/// @param view any view of the messenger that is on screen
/// @return null if the host's window can't be drawn into a picture: it is neither of Qt Quick nor
/// of Qt Widgets
TOLVANE_VIEWS_AUTOTEST_EXPORT QImage grab(QQuickItem &view);

} // namespace tolvane::hostpicture
