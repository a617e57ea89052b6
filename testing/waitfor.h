// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QString>
#include <QtCore/QTimer>

#include <chrono>
#include <stdexcept>

namespace tolvane::test {

/// Runs the event loop for a while.
inline void wait(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Runs the event loop until a condition holds, and checks it after each batch of events and at
/// least every five milliseconds. Throws after a timeout, which is long enough for a sanitized
/// program on a busy machine.
/// @param what names the condition in the message
template <typename Condition>
void waitFor(const QString &what, const Condition &condition)
{
    const QDeadlineTimer deadline(std::chrono::seconds(30));
    QTimer wakeUp; // Conditions may depend on other threads and processes.
    wakeUp.start(std::chrono::milliseconds(5));
    while (!condition()) {
        if (deadline.hasExpired())
            throw std::runtime_error("timeout while waiting for " + what.toStdString());
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace tolvane::test
