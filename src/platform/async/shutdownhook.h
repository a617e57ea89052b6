// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <functional>
#include <memory>

namespace tolvane {

/// Keeps a shutdown function registered until it is destroyed.
using ShutdownHook = std::shared_ptr<void>;

/// Calls `stop` when the application object is destroyed, or at exit if it never is.
///
/// The library's instances are never destroyed, but their threads must stop before the process
/// destroys the objects that they use: exit() on the main thread calls them before it destroys any
/// static object, if one was registered there. Functions run in the reverse order of registration,
/// on the thread that ends the process, and possibly more than once. Safe from any thread.
[[nodiscard]] TOLVANE_PRIVATE_EXPORT ShutdownHook onShutdown(std::function<void()> stop);

/// True while those functions run. A stopped service must not be started again by one that still
/// runs. Safe from any thread.
TOLVANE_PRIVATE_EXPORT bool isShuttingDown();

/// Keeps work that was posted too late to run. Destroying it would break its promises, and resume
/// coroutines that wait for them in a process that is ending. Safe from any thread.
void leakUntilExit(std::function<void()> work);

} // namespace tolvane
