// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

class QQmlEngine;

namespace tolvane {

/// The QML engine of the library's views, independent of the host's engines. It is kept for some
/// time after a presentation, so that a later one opens immediately. Main thread.
TOLVANE_VIEWS_AUTOTEST_EXPORT QQmlEngine &viewsEngine();

/// Deletes the engine, whose objects must not be in use any more. The next call of viewsEngine()
/// creates another one.
void deleteViewsEngine();

} // namespace tolvane
