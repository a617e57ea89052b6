// SPDX-License-Identifier: MIT
#include "frames.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

#include <atomic>
#include <ctime>

namespace tolvane::bench {

double now()
{
    static const QElapsedTimer timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return double(timer.nsecsElapsed()) / 1e6;
}

double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double nextFrame(QQuickWindow &window)
{
    // The render thread emits both signals, the first one while the main thread is blocked.
    std::atomic<bool> isSynchronized = false;
    std::atomic<double> shownAt = 0;
    QEventLoop loop;
    QObject::connect(
        &window, &QQuickWindow::afterSynchronizing, &loop, [&] { isSynchronized = true; },
        Qt::DirectConnection);
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &loop,
        [&] {
            if (!isSynchronized || shownAt > 0)
                return;
            shownAt = now();
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        },
        Qt::DirectConnection);
    QTimer::singleShot(20'000, &loop, [] { qFatal("No frame is rendered"); });
    window.update();
    loop.exec();
    return shownAt;
}

FixedStepDriver::FixedStepDriver(QQuickWindow &window)
    : m_window(window)
{
    install();
}

double FixedStepDriver::frame(int milliseconds)
{
    const double before = processorTime();
    m_elapsed += milliseconds;
    advance();
    nextFrame(m_window);
    return processorTime() - before;
}

} // namespace tolvane::bench
