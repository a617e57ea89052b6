// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtGui/QImage>

class QQuickItem;

/// Pictures of the host's window without the messenger, and without the rest of the screen.
namespace tolvane::hostpicture {

/// @param view any visible view of the messenger
/// @return null if the host's window has neither Qt Quick items nor widgets
TOLVANE_VIEWS_AUTOTEST_EXPORT QImage grab(QQuickItem &view);

} // namespace tolvane::hostpicture
