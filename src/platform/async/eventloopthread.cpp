// SPDX-License-Identifier: MIT
#include "platform/async/eventloopthread.h"

#include "base/invokenoexcept.h"

#include <QtCore/QCoreApplication>

namespace tolvane {

namespace {

class Loop final : public QThread
{
public:
    explicit Loop(QObject *context)
        : m_context(context)
    {
    }

protected:
    void run() override
    {
        const std::unique_ptr<QObject> context(m_context);
        exec();
    }

private:
    QObject *m_context;
};

} // namespace

EventLoopThread::EventLoopThread(QString name)
    : m_name(std::move(name))
{
}

EventLoopThread::~EventLoopThread()
{
    stop();
}

void EventLoopThread::post(std::function<void()> work)
{
    const std::scoped_lock lock(m_mutex);
    if (!m_thread) {
        if (!QCoreApplication::instance() || isShuttingDown()) {
            leakUntilExit(std::move(work));
            return;
        }
        start();
    }
    QMetaObject::invokeMethod(
        m_context, [work = std::move(work)] { invokeNoexcept("a serial executor's job", work); },
        Qt::QueuedConnection);
}

void EventLoopThread::start()
{
    m_context = new QObject;
    m_thread = std::make_unique<Loop>(m_context);
    m_thread->setObjectName(m_name);
    m_context->moveToThread(m_thread.get());
    m_thread->start();
    m_shutdownHook = onShutdown([this] { stop(); });
}

void EventLoopThread::stop()
{
    std::unique_ptr<QThread> thread;
    {
        const std::scoped_lock lock(m_mutex);
        thread = std::move(m_thread);
        m_shutdownHook.reset();
    }
    if (!thread)
        return;
    thread->quit();
    thread->wait();
}

} // namespace tolvane
