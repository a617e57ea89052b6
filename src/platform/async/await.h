// SPDX-License-Identifier: MIT
#pragma once

#include "base/errors.h"
#include "base/privateexport.h"

#include <QCoroTask>
#include <QtCore/QFuture>
#include <QtCore/QFutureWatcher>

#include <coroutine>

namespace tolvane {

/// The parent of everything that suspended coroutines of this thread wait on. It outlives the
/// thread, so a coroutine that is in flight when the process ends stays suspended and reachable
/// instead of being resumed in a process half taken down.
TOLVANE_PRIVATE_EXPORT QObject *awaitScope();

namespace detail {

template <typename T>
class Settled
{
public:
    explicit Settled(QFuture<T> future)
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
        m_future.waitForFinished(); // Finished already: this throws what the future holds.
        if (m_future.isCanceled())
            throw CancellationError();
        if constexpr (!std::is_void_v<T>)
            return m_future.takeResult();
    }

private:
    QFuture<T> m_future;
};

} // namespace detail

/// Awaits a future: the coroutine resumes on the thread that awaited, takes the result out of the
/// future, and throws what the future holds, CancellationError if nobody is left to fulfil it.
///
/// Make futures in a statement of their own: GCC 12 destroys a lambda with captures twice when it
/// is a temporary of the co_await expression.
template <typename T>
auto settled(QFuture<T> future)
{
    return detail::Settled<T>(std::move(future));
}

/// Lets a task run on its own. A failure that it did not deal with is reported to the log.
TOLVANE_PRIVATE_EXPORT void detach(QCoro::Task<> task);

} // namespace tolvane
