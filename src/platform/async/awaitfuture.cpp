// SPDX-License-Identifier: MIT
#include "platform/async/awaitfuture.h"

#include "base/invokenoexcept.h"

#include <mutex>
#include <vector>

namespace tolvane {

QObject *awaitScope()
{
    static auto *mutex = new std::mutex;
    static auto *scopes = new std::vector<QObject *>;
    thread_local QObject *const scope = [] {
        const std::scoped_lock lock(*mutex);
        return scopes->emplace_back(new QObject);
    }();
    return scope;
}

namespace {

QCoro::Task<> watch(QCoro::Task<> task)
{
    try {
        co_await task;
    } catch (...) {
        reportException("a detached task");
    }
}

} // namespace

void detach(QCoro::Task<> task)
{
    watch(std::move(task));
}

} // namespace tolvane
