// SPDX-License-Identifier: MIT
#pragma once

#include "platform/async/clock.h"

namespace tolvane::soak {

/// Runs another clock faster by a factor.
class FastClock final : public Clock
{
public:
    FastClock(std::unique_ptr<Clock> clock, int factor)
        : m_clock(std::move(clock))
        , m_factor(factor)
        , m_begin(m_clock->now())
        , m_monotonicBegin(m_clock->monotonicNow())
    {
    }

    QDateTime now() const override
    {
        return m_begin.addMSecs(m_begin.msecsTo(m_clock->now()) * m_factor);
    }
    Instant monotonicNow() const override
    {
        return m_monotonicBegin + (m_clock->monotonicNow() - m_monotonicBegin) * m_factor;
    }
    QFuture<void> sleep(Duration duration, std::stop_token stop) override
    {
        return m_clock->sleep(duration / m_factor, std::move(stop));
    }

private:
    std::unique_ptr<Clock> m_clock;
    int m_factor;
    QDateTime m_begin;
    Instant m_monotonicBegin;
};

} // namespace tolvane::soak
