// SPDX-License-Identifier: MIT
#include "platform/async/shutdownhook.h"

#include "base/mainthread.h"

#include <atomic>
#include <mutex>
#include <vector>

namespace tolvane {

namespace {

struct Registry
{
    std::mutex mutex;
    std::vector<std::weak_ptr<std::function<void()>>> functions;
    std::vector<std::function<void()>> leaked;
    bool hasPostRoutine = false;
    std::atomic<bool> isShuttingDown = false;
};

// Never destroyed: instances that outlive static destruction still release their hooks.
Registry &registry()
{
    static auto *instance = new Registry;
    return *instance;
}

void shutDown()
{
    registry().isShuttingDown = true;
    std::vector<std::weak_ptr<std::function<void()>>> functions;
    {
        const std::scoped_lock lock(registry().mutex);
        functions = registry().functions;
        registry().hasPostRoutine = false; // Qt removes post routines once they have run.
    }
    for (auto entry = functions.rbegin(); entry != functions.rend(); ++entry) {
        if (const auto function = entry->lock())
            (*function)();
    }
}

void shutDownWithApplication()
{
    shutDown();
    registry().isShuttingDown = false; // The process may create another application object.
}

/// For processes that call exit() while the application object exists.
void shutDownAtExit()
{
    static std::atomic<bool> isDone = false;
    if (!isDone.exchange(true))
        shutDown();
}

struct AtExit
{
    ~AtExit() { shutDownAtExit(); }
};

/// exit() destroys the thread-local objects of its thread before all static objects. Other threads
/// may have created static objects after ours, and still use them: the render thread creates one
/// for each kind of shader.
void shutDownBeforeStaticObjects()
{
    thread_local const AtExit atExit;
}

} // namespace

ShutdownHook onShutdown(std::function<void()> stop)
{
    static const AtExit atExit;
    if (isMainThread())
        shutDownBeforeStaticObjects();
    auto function = std::make_shared<std::function<void()>>(std::move(stop));
    const std::scoped_lock lock(registry().mutex);
    std::erase_if(registry().functions, [](const auto &entry) { return entry.expired(); });
    registry().functions.push_back(function);
    if (!std::exchange(registry().hasPostRoutine, true))
        qAddPostRoutine(shutDownWithApplication);
    return function;
}

bool isShuttingDown()
{
    return registry().isShuttingDown;
}

void leakUntilExit(std::function<void()> work)
{
    const std::scoped_lock lock(registry().mutex);
    registry().leaked.push_back(std::move(work));
}

} // namespace tolvane
