// SPDX-License-Identifier: MIT
#include "platform/async/clock.h"

#include "platform/async/awaitfuture.h"

#include <QtCore/QPromise>
#include <QtCore/QTimer>

#include <algorithm>
#include <atomic>

namespace tolvane {

namespace {

/// One sleep. The timer and the stop request race to finish its promise.
class Sleep final : public QObject
{
public:
    Sleep(Clock::Duration duration, const std::stop_token &stop)
        : QObject(awaitScope())
    {
        m_promise.start();
        // A coarse timer may fire early, but a sleep must not end before its duration.
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setSingleShot(true);
        connect(&m_timer, &QTimer::timeout, this, [this] { end(false); });
        m_timer.start(std::chrono::ceil<std::chrono::milliseconds>(
            std::max(duration, Clock::Duration::zero())));
        m_onStop.emplace(stop, Stop{this});
    }

    QFuture<void> future() { return m_promise.future(); }

private:
    struct Stop
    {
        Sleep *sleep;
        void operator()() const { sleep->end(true); }
    };

    void end(bool cancelled)
    {
        if (m_ended.exchange(true))
            return;
        if (cancelled)
            m_promise.setException(std::make_exception_ptr(CancellationError()));
        m_promise.finish();
        deleteLater();
    }

    std::atomic<bool> m_ended = false;
    QPromise<void> m_promise;
    QTimer m_timer;
    std::optional<std::stop_callback<Stop>> m_onStop;
};

class SystemClock final : public Clock
{
public:
    QDateTime now() const override { return QDateTime::currentDateTimeUtc(); }
    Instant monotonicNow() const override { return std::chrono::steady_clock::now(); }

    QFuture<void> sleep(Duration duration, std::stop_token stop) override
    {
        return (new Sleep(duration, stop))->future();
    }
};

} // namespace

std::unique_ptr<Clock> makeSystemClock()
{
    return std::make_unique<SystemClock>();
}

} // namespace tolvane
