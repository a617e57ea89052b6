// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

class QQmlEngine;

namespace tolvane {

/// The QML engine of all the library's views. It is the library's own, so that the host may create
/// and destroy engines at any time, and it is kept between presentations, so that later ones open
/// at once. Main thread.
TOLVANE_VIEWS_AUTOTEST_EXPORT QQmlEngine &viewsEngine();

} // namespace tolvane
