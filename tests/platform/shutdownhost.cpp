// SPDX-License-Identifier: MIT
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/pollingservice.h"

#include <tolvane/tolvane.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

#include <cstdlib>
#include <thread>

using namespace tolvane;

namespace {

QCoro::Task<> sleepLong()
{
    QFuture<void> end = platform().clock->sleep(std::chrono::hours(1), {});
    co_await awaitFuture(end);
}

QCoro::Task<> workAWhile()
{
    QFuture<int> work = platform().workers->run([] {
        QThread::msleep(300);
        return 1;
    });
    co_await awaitFuture(work);
}

/// Like the decoding of a picture that cannot be interrupted.
QCoro::Task<> workForLong()
{
    QFuture<void> work = platform().workers->run([] { QThread::sleep(60); });
    co_await awaitFuture(work);
}

/// A thread of the host that waits for an update. The process waits for the thread.
std::jthread waitForUpdate()
{
    return std::jthread([] {
        QFuture<void> done = Tolvane::updateCustomer({}, QStringLiteral("id"));
        const QFuture<void> next = done.then([] { std::_Exit(EXIT_FAILURE); });
        done.waitForFinished();
    });
}

} // namespace

/// Ends the process during the work that its first argument names. The second argument is "return"
/// or "exit".
int main(int argc, char **argv)
{
    static std::jthread waiting; // Joined at exit.
    QCoreApplication app(argc, argv);
    const QByteArray busy = argv[1];
    Tolvane::initialize(QStringLiteral("key")); // Its settings request is in flight too.
    if (busy == "request")
        waiting = waitForUpdate();
    else if (busy == "sleep")
        detach(sleepLong());
    else if (busy == "work")
        detach(workAWhile());
    else if (busy == "long work")
        detach(workForLong());
    else if (busy == "polling")
        PollingService::shared()->startPolling(QStringLiteral("t"), 0);
    // Long enough for all work to have started.
    platform().clock->sleep(std::chrono::milliseconds(150), {}).then(&app, [argv] {
        if (QByteArrayView(argv[2]) == "exit")
            std::exit(3);
        QCoreApplication::exit(3);
    });
    const int result = QCoreApplication::exec();
    if (waiting.joinable())
        waiting.join();
    return result;
}
