// SPDX-License-Identifier: MIT
#include "platform/async/executor.h"

#include "base/invokenoexcept.h"
#include "platform/async/shutdownhook.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThreadPool>

namespace tolvane {

namespace {

/// How long the process waits for running jobs at exit, in milliseconds. Jobs that can be
/// interrupted take less.
constexpr int timeoutAtExit = 400;

class MainExecutor final : public Executor
{
public:
    void post(std::function<void()> work) override
    {
        QCoreApplication *app = QCoreApplication::instance();
        if (!app) {
            leakUntilExit(std::move(work));
            return;
        }
        QMetaObject::invokeMethod(
            app, [work = std::move(work)] { invokeNoexcept("a posted call", work); },
            Qt::QueuedConnection);
    }
};

class WorkerPool final : public Executor
{
public:
    WorkerPool(const QString &name, QThread::Priority priority)
    {
        m_pool.setObjectName(name);
        m_pool.setThreadPriority(priority);
        m_shutdownHook = onShutdown([this] { stop(); });
    }

    void post(std::function<void()> work) override
    {
        m_pool.start([work = std::move(work)] { invokeNoexcept("a worker's job", work); });
    }

private:
    /// A job that is still running afterwards uses no object that the process destroys.
    void stop()
    {
        m_pool.clear();
        if (!m_hasTimedOut)
            m_hasTimedOut = !m_pool.waitForDone(timeoutAtExit);
    }

    QThreadPool m_pool;
    bool m_hasTimedOut = false;
    ShutdownHook m_shutdownHook;
};

} // namespace

std::unique_ptr<Executor> makeMainExecutor()
{
    return std::make_unique<MainExecutor>();
}

std::unique_ptr<Executor> makeWorkerPool(const QString &name, QThread::Priority priority)
{
    return std::make_unique<WorkerPool>(name, priority);
}

} // namespace tolvane
