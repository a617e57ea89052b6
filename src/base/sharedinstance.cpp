// SPDX-License-Identifier: MIT
#include "base/sharedinstance.h"

#include <vector>

namespace tolvane {

namespace {

struct Registry
{
    std::mutex mutex;
    std::vector<std::function<void()>> resets;
};

Registry &registry()
{
    static auto *instance = new Registry;
    return *instance;
}

} // namespace

void detail::onResetOfSharedInstances(std::function<void()> reset)
{
    const std::scoped_lock lock(registry().mutex);
    registry().resets.push_back(std::move(reset));
}

void resetSharedInstances()
{
    std::vector<std::function<void()>> resets;
    {
        const std::scoped_lock lock(registry().mutex);
        resets.swap(registry().resets);
    }
    for (auto reset = resets.rbegin(); reset != resets.rend(); ++reset)
        (*reset)();
}

} // namespace tolvane
