// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QFuture>
#include <QtCore/QPromise>
#include <QtCore/QString>
#include <QtCore/QThread>

#include <functional>
#include <memory>
#include <type_traits>

namespace tolvane {

/// Runs `work` and keeps the promise by its result, or by the exception that it throws.
template <typename Result, typename Work>
void fulfil(QPromise<Result> &promise, Work &&work)
{
    try {
        if constexpr (std::is_void_v<Result>)
            work();
        else
            promise.addResult(work());
    } catch (...) {
        promise.setException(std::current_exception());
    }
    promise.finish();
}

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
        std::shared_ptr<Job> job(new Job{QPromise<Result>(), std::move(work)});
        job->promise.start();
        QFuture<Result> future = job->promise.future();
        post([job] { fulfil(job->promise, job->work); });
        return future;
    }
};

/// The thread of the application object.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Executor> makeMainExecutor();

/// Threads of a pool of the library's own, so that the host's global pool stays the host's.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Executor>
makeWorkerPool(const QString &name, QThread::Priority priority = QThread::InheritPriority);

} // namespace tolvane
