// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <functional>
#include <memory>
#include <mutex>

namespace tolvane {

namespace detail {
/// Has `reset` called by resetSharedInstances().
TOLVANE_PRIVATE_EXPORT void onResetOfSharedInstances(std::function<void()> reset);
} // namespace detail

/// The one instance of a type in this process: made by `make` at first use, exactly once, never
/// torn down. Safe from any thread.
template <typename T>
const std::shared_ptr<T> &sharedInstance(std::shared_ptr<T> (*make)() = std::make_shared<T>)
{
    // Kept on the heap for good, so that it outlives static destruction.
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

/// Lets go of all shared instances, the youngest first, as a new process would begin without them.
/// For test fixtures: nothing may be using them.
TOLVANE_AUTOTEST_EXPORT void resetSharedInstances();

} // namespace tolvane
