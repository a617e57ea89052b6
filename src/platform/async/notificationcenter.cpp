// SPDX-License-Identifier: MIT
#include "platform/async/notificationcenter.h"

#include "base/invokenoexcept.h"
#include "base/mainthread.h"
#include "platform/async/executor.h"

namespace tolvane {

void NotificationCenter::post(const QString &name, const UserInfo &userInfo)
{
    std::vector<std::weak_ptr<Observer>> observers;
    {
        const std::scoped_lock lock(m_mutex);
        observers = m_observers;
    }
    const auto deliver = [](const std::weak_ptr<Observer> &entry, const UserInfo &info) {
        if (const auto observer = entry.lock())
            invokeNoexcept("a notification's observer", [&] { observer->callback(info); });
    };
    for (const std::weak_ptr<Observer> &entry : observers) {
        const auto observer = entry.lock();
        if (!observer || observer->name != name)
            continue;
        if (observer->delivery == Delivery::postingThread || isMainThread())
            deliver(entry, userInfo);
        else
            m_mainExecutor.post([=] { deliver(entry, userInfo); });
    }
}

NotificationCenter::Observation NotificationCenter::observe(const QString &name, Delivery delivery,
                                                            Callback callback)
{
    auto observer = std::make_shared<Observer>(Observer{name, delivery, std::move(callback)});
    const std::scoped_lock lock(m_mutex);
    std::erase_if(m_observers, [](const auto &entry) { return entry.expired(); });
    m_observers.push_back(observer);
    return observer;
}

} // namespace tolvane
