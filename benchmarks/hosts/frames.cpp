// SPDX-License-Identifier: MIT
#include "frames.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

#include <atomic>
#include <ctime>

namespace tolvane::bench {

namespace {

constexpr int patience = 20'000;

} // namespace

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

void pause(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void waitUntil(const std::function<bool()> &holds)
{
    const double end = now() + patience;
    while (!holds()) {
        if (now() > end)
            qFatal("what the benchmark waits for does not happen");
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
}

double nextFrame(QQuickWindow &window)
{
    // Both signals come from the thread that draws, the first while the main thread waits.
    std::atomic<bool> isTakenOver = false;
    std::atomic<double> shownAt = 0;
    QEventLoop loop;
    QObject::connect(
        &window, &QQuickWindow::afterSynchronizing, &loop, [&] { isTakenOver = true; },
        Qt::DirectConnection);
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &loop,
        [&] {
            if (!isTakenOver || shownAt > 0)
                return;
            shownAt = now();
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        },
        Qt::DirectConnection);
    QTimer::singleShot(patience, &loop, [] { qFatal("no frame is drawn"); });
    window.update();
    loop.exec();
    return shownAt;
}

SteadyTime::SteadyTime(QQuickWindow &window)
    : m_window(window)
{
    install();
}

double SteadyTime::frame(int milliseconds)
{
    const double before = processorTime();
    m_elapsed += milliseconds;
    advance();
    nextFrame(m_window);
    return processorTime() - before;
}

} // namespace tolvane::bench
