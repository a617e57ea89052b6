// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/async/executor.h"
#include "platform/async/shutdownhook.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QThread>

#include <memory>
#include <mutex>

namespace tolvane {

/// A serial executor: one thread with an event loop, started by the first post.
///
/// Work posted from other threads runs in order. Children of context() are destroyed on the thread
/// when it ends.
class TOLVANE_AUTOTEST_EXPORT EventLoopThread final : public Executor
{
public:
    explicit EventLoopThread(QString name);
    ~EventLoopThread() override;

    void post(std::function<void()> work) override;

    /// The parent of objects that live on the thread; valid only in work that runs there.
    QObject *context() const { return m_context; }

private:
    void start();
    void stop();

    const QString m_name;
    std::mutex m_mutex;
    std::unique_ptr<QThread> m_thread;
    QObject *m_context = nullptr;
    ShutdownHook m_shutdownHook;
};

} // namespace tolvane
