// SPDX-License-Identifier: MIT
#include "platform/platform.h"

#include "platform/async/eventloopthread.h"
#include "platform/system/userinterface.h"

#include <atomic>
#include <mutex>

namespace tolvane {

namespace {

std::optional<QString> processEnvironmentVariable(const char *name)
{
    if (!qEnvironmentVariableIsSet(name))
        return std::nullopt;
    return qEnvironmentVariable(name);
}

void presentUserInterface()
{
    if (const auto present = userInterface().present)
        present();
}

void dismissUserInterface()
{
    if (const auto dismiss = userInterface().dismiss)
        dismiss();
}

std::mutex &creationMutex()
{
    static auto *mutex = new std::mutex;
    return *mutex;
}

// Never destroyed: the instances that use the services outlive static destruction.
std::atomic<Platform *> current = nullptr;

} // namespace

Platform makeProductionPlatform()
{
    auto mainThread = makeMainExecutor();
    auto notificationCenter = std::make_unique<NotificationCenter>(*mainThread);
    return Platform{
        .mainThread = std::move(mainThread),
        .workers = makeWorkerPool(QStringLiteral("tolvane-workers")),
        .pictureWorkers = makeWorkerPool(QStringLiteral("tolvane-pictures"), QThread::LowPriority),
        .pollingThread = std::make_unique<EventLoopThread>(QStringLiteral("tolvane-polling")),
        .notificationCenter = std::move(notificationCenter),
        .preferences = makeFilePreferences(),
        .clock = makeSystemClock(),
        .urlSession = makeNetworkSession(),
        .device = makeSystemDevice(),
        .bundle = makeApplicationBundle(),
        .makeLogSink = makeLoggingCategorySink,
        .makeUrlCache = makeUrlCache,
        .environmentVariable = processEnvironmentVariable,
        .present = presentUserInterface,
        .dismiss = dismissUserInterface,
    };
}

Platform &platform()
{
    if (Platform *installed = current.load(std::memory_order_acquire))
        return *installed;
    const std::scoped_lock lock(creationMutex());
    if (!current.load(std::memory_order_acquire))
        current.store(new Platform(makeProductionPlatform()), std::memory_order_release);
    return *current.load(std::memory_order_acquire);
}

std::unique_ptr<Platform> exchangePlatform(std::unique_ptr<Platform> replacement)
{
    const std::scoped_lock lock(creationMutex());
    return std::unique_ptr<Platform>(current.exchange(replacement.release()));
}

} // namespace tolvane
