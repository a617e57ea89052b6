// SPDX-License-Identifier: MIT
#include "platform/winddown.h"

#include <QtCore/QCoreApplication>

#include <mutex>
#include <vector>

namespace tolvane {

namespace {

struct Registry
{
    std::mutex mutex;
    std::vector<std::weak_ptr<std::function<void()>>> functions;
    bool hooked = false;
};

// Never destroyed: instances that outlive static destruction still let go of their hooks.
Registry &registry()
{
    static auto *instance = new Registry;
    return *instance;
}

void windDown()
{
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
        qAddPostRoutine(windDown);
    return function;
}

} // namespace tolvane
