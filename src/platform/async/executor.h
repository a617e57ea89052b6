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

/// Calls `work` and finishes the promise with its result or its exception.
template <typename Result, typename Work>
void setPromiseFrom(QPromise<Result> &promise, Work &&work)
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

/// Runs code on the main thread, a serial executor or the worker pool.
class Executor
{
public:
    Executor() = default;
    Executor(const Executor &) = delete;
    Executor &operator=(const Executor &) = delete;
    virtual ~Executor() = default;

    /// Runs `work` later: in the order of the posts on a thread, in any order in a pool. An
    /// exception that leaves `work` is logged. Work posted while the process ends is dropped. Safe
    /// from any thread.
    virtual void post(std::function<void()> work) = 0;

    /// Runs `work` and returns a future of its result or its exception.
    template <typename Work>
    auto run(Work work) -> QFuture<std::invoke_result_t<Work>>
    {
        using Result = std::invoke_result_t<Work>;
        // Shared, because a posted function must be copyable, and these two may not be.
        struct Job
        {
            QPromise<Result> promise;
            Work work;
        };
        std::shared_ptr<Job> job(new Job{QPromise<Result>(), std::move(work)});
        job->promise.start();
        QFuture<Result> future = job->promise.future();
        post([job] { setPromiseFrom(job->promise, job->work); });
        return future;
    }
};

/// The thread of the application object.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Executor> makeMainExecutor();

/// The library has a thread pool of its own, and leaves the global one to the host.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Executor>
makeWorkerPool(const QString &name, QThread::Priority priority = QThread::InheritPriority);

} // namespace tolvane
