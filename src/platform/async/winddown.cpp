// SPDX-License-Identifier: MIT
#include "platform/async/winddown.h"

#include <QtCore/QCoreApplication>

#include <atomic>
#include <mutex>
#include <vector>

namespace tolvane {

namespace {

struct Registry
{
    std::mutex mutex;
    std::vector<std::weak_ptr<std::function<void()>>> functions;
    std::vector<std::function<void()>> abandoned;
    bool hooked = false;
    std::atomic<bool> windingDown = false;
};

// Never destroyed: instances that outlive static destruction still let go of their hooks.
Registry &registry()
{
    static auto *instance = new Registry;
    return *instance;
}

void windDown()
{
    registry().windingDown = true;
    std::vector<std::weak_ptr<std::function<void()>>> functions;
    {
        const std::scoped_lock lock(registry().mutex);
        functions = registry().functions;
        registry().hooked = false; // The application forgets its routines once they have run.
    }
    for (auto entry = functions.rbegin(); entry != functions.rend(); ++entry) {
        if (const auto function = entry->lock())
            (*function)();
    }
}

void windDownWithApplication()
{
    windDown();
    registry().windingDown = false; // The process may go on, and with another application object.
}

// For processes that end by exit() with the application object alive.
struct AtExit
{
    ~AtExit() { windDown(); }
};

} // namespace

WindDownHook atWindDown(std::function<void()> stop)
{
    static const AtExit atExit;
    auto function = std::make_shared<std::function<void()>>(std::move(stop));
    const std::scoped_lock lock(registry().mutex);
    std::erase_if(registry().functions, [](const auto &entry) { return entry.expired(); });
    registry().functions.push_back(function);
    if (!std::exchange(registry().hooked, true))
        qAddPostRoutine(windDownWithApplication);
    return function;
}

bool isWindingDown()
{
    return registry().windingDown;
}

void abandon(std::function<void()> work)
{
    const std::scoped_lock lock(registry().mutex);
    registry().abandoned.push_back(std::move(work));
}

} // namespace tolvane
