// SPDX-License-Identifier: MIT
#pragma once

#include "base/errors.h"
#include "base/privateexport.h"

#include <QCoroTask>
#include <QtCore/QFuture>
#include <QtCore/QFutureWatcher>

#include <coroutine>

namespace tolvane {

/// The parent of all objects that suspended coroutines of this thread wait for. It outlives the
/// thread: at the end of the process such a coroutine stays suspended and reachable, instead of
/// being resumed in a partly destroyed process.
TOLVANE_PRIVATE_EXPORT QObject *awaitScope();

namespace detail {

template <typename T>
class FutureAwaiter
{
public:
    explicit FutureAwaiter(QFuture<T> future)
        : m_future(std::move(future))
    {
    }

    bool await_ready() const { return m_future.isFinished(); }

    void await_suspend(std::coroutine_handle<> awaiting)
    {
        auto *watcher = new QFutureWatcher<T>(awaitScope());
        QObject::connect(watcher, &QFutureWatcherBase::finished, watcher, [watcher, awaiting] {
            watcher->deleteLater();
            awaiting.resume();
        });
        watcher->setFuture(m_future);
    }

    T await_resume()
    {
        m_future.waitForFinished(); // Finished already; throws a stored exception.
        if (m_future.isCanceled())
            throw CancellationError();
        if constexpr (!std::is_void_v<T>)
            return m_future.takeResult();
    }

private:
    QFuture<T> m_future;
};

} // namespace detail

/// Awaits a future. The coroutine resumes on the awaiting thread and takes the result out of the
/// future. Throws the future's exception, or CancellationError if its promise was destroyed.
///
/// Create futures in a separate statement: GCC 12 destroys a lambda with captures twice if it is a
/// temporary of the co_await expression.
template <typename T>
auto awaitFuture(QFuture<T> future)
{
    return detail::FutureAwaiter<T>(std::move(future));
}

/// Runs a task without awaiting it. An exception that leaves the task is logged.
TOLVANE_PRIVATE_EXPORT void detach(QCoro::Task<> task);

} // namespace tolvane
