// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <functional>
#include <memory>
#include <mutex>

namespace tolvane {

namespace detail {
/// Registers a function for resetSharedInstances().
TOLVANE_PRIVATE_EXPORT void onResetOfSharedInstances(std::function<void()> reset);
} // namespace detail

/// The process-wide instance of a type. `make` creates it at first use, exactly once; it is never
/// destroyed. Safe from any thread.
template <typename T>
const std::shared_ptr<T> &sharedInstance(std::shared_ptr<T> (*make)() = std::make_shared<T>)
{
    // Leaked on the heap, so that it outlives static destruction.
    struct Slot
    {
        std::mutex mutex;
        std::shared_ptr<T> instance;
    };
    static auto *slot = new Slot;
    const std::scoped_lock lock(slot->mutex);
    if (!slot->instance) {
        slot->instance = make();
        detail::onResetOfSharedInstances([] { slot->instance.reset(); });
    }
    return slot->instance;
}

/// Destroys all shared instances, the newest first, so that a test starts like a new process. No
/// instance may be in use.
TOLVANE_AUTOTEST_EXPORT void resetSharedInstances();

} // namespace tolvane
