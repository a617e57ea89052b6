// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/async/executor.h"
#include "platform/async/winddown.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QThread>

#include <memory>
#include <mutex>

namespace tolvane {

/// A serial executor: one thread with an event loop, started by the first post.
///
/// Work posted from outside runs in order. Objects that are to die with the thread, on it, become
/// children of context().
class TOLVANE_AUTOTEST_EXPORT EventLoopThread final : public Executor
{
public:
    explicit EventLoopThread(QString name);
    ~EventLoopThread() override;

    void post(std::function<void()> work) override;

    /// The parent of what lives on the thread; only valid in work that runs there.
    QObject *context() const { return m_context; }

private:
    void start();
    void stop();

    const QString m_name;
    std::mutex m_mutex;
    std::unique_ptr<QThread> m_thread;
    QObject *m_context = nullptr;
    WindDownHook m_windDown;
};

} // namespace tolvane
