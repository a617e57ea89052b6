// SPDX-License-Identifier: MIT
#include "recovery/backoff.h"

#include "base/errors.h"
#include "platform/async/awaitfuture.h"
#include "platform/async/clock.h"
#include "platform/platform.h"

#include <QCoroTask>

#include <algorithm>
#include <chrono>

namespace tolvane {

namespace {

/// Calls the function after the delay, unless a stop is requested before.
QCoro::Task<> callLater(std::chrono::seconds delay, std::stop_token stop,
                        std::function<void()> function)
{
    try {
        co_await awaitFuture(platform().clock->sleep(delay, stop));
    } catch (const CancellationError &) {
        co_return;
    }
    if (!stop.stop_requested())
        function();
}

} // namespace

BackOff::BackOff(std::function<void()> retry)
    : m_retry(std::move(retry))
{
}

BackOff::~BackOff()
{
    succeeded();
}

void BackOff::failed()
{
    if (m_scheduled)
        return;
    constexpr int longestExponent = 6;
    m_failures = std::min(m_failures + 1, longestExponent);
    const std::chrono::seconds delay(std::min(1 << m_failures, 60));
    m_scheduled.emplace();
    detach(callLater(delay, m_scheduled->get_token(), [this] {
        m_scheduled.reset();
        m_retry();
    }));
}

void BackOff::succeeded()
{
    if (m_scheduled)
        m_scheduled->request_stop();
    m_scheduled.reset();
    m_failures = 0;
}

} // namespace tolvane
