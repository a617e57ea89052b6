// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <functional>
#include <optional>
#include <stop_token>

namespace tolvane {

/// Repeats an operation that fails: 2, 4, 8 … seconds later, at most 60. Main thread.
class TOLVANE_PRIVATE_EXPORT BackOff
{
public:
    explicit BackOff(std::function<void()> retry);
    BackOff(const BackOff &) = delete;
    BackOff &operator=(const BackOff &) = delete;
    /// Cancels a scheduled attempt.
    ~BackOff();

    /// Schedules the next attempt, unless one is scheduled.
    void failed();
    /// Cancels a scheduled attempt, and restarts the series of delays.
    void succeeded();

private:
    std::function<void()> m_retry;
    std::optional<std::stop_source> m_scheduled;
    int m_failures = 0;
};

} // namespace tolvane
