// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

class QQmlEngine;

namespace tolvane {

/// The QML engine of all the library's views. It is the library's own, so that the host may create
/// and destroy engines at any time, and it is kept for some time after a presentation, so that a
/// later one opens at once. Main thread.
TOLVANE_VIEWS_AUTOTEST_EXPORT QQmlEngine &viewsEngine();

/// Deletes the engine, of which no object may be in use. The next call of viewsEngine() creates
/// another.
void deleteViewsEngine();

} // namespace tolvane
