// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QDateTime>
#include <QtCore/QFuture>

#include <chrono>
#include <memory>
#include <stop_token>

namespace tolvane {

/// The only source of time.
class Clock
{
public:
    using Instant = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    Clock() = default;
    Clock(const Clock &) = delete;
    Clock &operator=(const Clock &) = delete;
    virtual ~Clock() = default;

    /// The time of day, in UTC.
    virtual QDateTime now() const = 0;

    /// A monotonic time, for measuring durations.
    virtual Instant monotonicNow() const = 0;

    /// Finishes after `duration`, or with CancellationError as soon as a stop is requested. Call it
    /// on a thread with an event loop; the stop may be requested on any thread.
    virtual QFuture<void> sleep(Duration duration, std::stop_token stop) = 0;
};

TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Clock> makeSystemClock();

} // namespace tolvane
