// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFuture>
#include <QtCore/QPromise>

#include <functional>
#include <memory>
#include <type_traits>

namespace tolvane {

/// A place where code runs: the main thread, a serial executor, the worker pool.
class Executor
{
public:
    Executor() = default;
    Executor(const Executor &) = delete;
    Executor &operator=(const Executor &) = delete;
    virtual ~Executor() = default;

    /// Has `work` run there, after what was posted before (the pool promises no order). An
    /// exception that leaves `work` is reported to the log. Work posted while the process ends is
    /// dropped. Safe from any thread.
    virtual void post(std::function<void()> work) = 0;

    /// Runs `work` there and gives its result, or the exception that it threw.
    template <typename Work>
    auto run(Work work) -> QFuture<std::invoke_result_t<Work>>
    {
        using Result = std::invoke_result_t<Work>;
        // Shared, because a posted function has to be copyable and neither of the two need be.
        struct Job
        {
            QPromise<Result> promise;
            Work work;
        };
        auto job = std::make_shared<Job>(QPromise<Result>(), std::move(work));
        job->promise.start();
        QFuture<Result> future = job->promise.future();
        post([job] {
            try {
                if constexpr (std::is_void_v<Result>)
                    job->work();
                else
                    job->promise.addResult(job->work());
            } catch (...) {
                job->promise.setException(std::current_exception());
            }
            job->promise.finish();
        });
        return future;
    }
};

/// The thread of the application object.
std::unique_ptr<Executor> makeMainExecutor();

/// Threads of a pool of the library's own, so that the host's global pool stays the host's.
std::unique_ptr<Executor> makeWorkerPool();

} // namespace tolvane
