// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

class QQmlEngine;

namespace tolvane {

/// The engine that all of the library's views run in: its own, so that the host's may come and go,
/// and kept from one presentation to the next, so that a later one opens at once. Main thread.
TOLVANE_VIEWS_AUTOTEST_EXPORT QQmlEngine &viewsEngine();

} // namespace tolvane
