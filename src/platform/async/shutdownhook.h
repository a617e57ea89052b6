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
/// destroys objects that the threads use. If the main thread has registered a function, exit() on
/// that thread calls all functions before it destroys the first static object. Functions run in the
/// reverse order of registration, on the thread that ends the process, and possibly more than once.
/// Safe from any thread.
[[nodiscard]] TOLVANE_PRIVATE_EXPORT ShutdownHook onShutdown(std::function<void()> stop);

/// True while those functions run. A service that still runs must not restart a stopped one then.
/// Safe from any thread.
TOLVANE_PRIVATE_EXPORT bool isShuttingDown();

/// Keeps work that was posted too late to run. Destroying it would break its promises, and resume
/// coroutines that wait for them in a process that is ending. Safe from any thread.
void leakUntilExit(std::function<void()> work);

} // namespace tolvane
