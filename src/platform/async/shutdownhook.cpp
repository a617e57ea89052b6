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
    bool hooked = false;
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
        registry().hooked = false; // Qt removes post routines once they have run.
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

/// exit() destroys the objects of its own thread before all static ones. Other threads create
/// static objects at any time, and use them: the render thread does for each new kind of shader.
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
    if (!std::exchange(registry().hooked, true))
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
