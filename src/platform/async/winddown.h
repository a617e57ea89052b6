// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace tolvane {

/// Keeps a wind-down function registered; letting go of it takes the function back.
using WindDownHook = std::shared_ptr<void>;

/// Has `stop` called when the application object goes, or at the process's exit where it never
/// does.
///
/// The library's instances are never torn down, but their threads must not run on while the process
/// takes down what they stand on. Functions run in the reverse order of registration, on the thread
/// that ends the process, and may run more than once. Safe from any thread.
[[nodiscard]] WindDownHook atWindDown(std::function<void()> stop);

/// True while those functions run: what has been stopped must not be started again by what has not
/// been stopped yet. Safe from any thread.
bool isWindingDown();

/// Keeps work that has come too late to be done. Destroying it would break the promises in it, and
/// wake up those who wait for them, who had better stay asleep. Safe from any thread.
void abandon(std::function<void()> work);

} // namespace tolvane
