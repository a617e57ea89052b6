// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <memory>
#include <utility>

namespace tolvane {

/// Lists up to this size are handled on the main thread: a thread switch would take longer.
inline constexpr qsizetype smallList = 200;

/// Destroys an object with thousands of records. It would block the calling thread.
template <typename T>
void destroyOnWorker(T object)
{
    platform().workers->post([owned = std::make_shared<T>(std::move(object))] {});
}

} // namespace tolvane
