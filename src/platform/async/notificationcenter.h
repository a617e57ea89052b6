// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/async/userinfo.h"

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace tolvane {

class Executor;

/// In-process broadcasts by name, delivered synchronously on the posting thread.
class TOLVANE_PRIVATE_EXPORT NotificationCenter
{
public:
    using UserInfo = tolvane::UserInfo;
    using Callback = std::function<void(const UserInfo &userInfo)>;

    /// The thread on which an observer's callback runs. On the main thread it is called directly if
    /// the post comes from there.
    enum class Delivery { postingThread, mainThread };

    /// Ends the observation when destroyed; no delivery starts afterwards.
    using Observation = std::shared_ptr<void>;

    explicit NotificationCenter(Executor &mainExecutor)
        : m_mainExecutor(mainExecutor)
    {
    }
    NotificationCenter(const NotificationCenter &) = delete;
    NotificationCenter &operator=(const NotificationCenter &) = delete;
    virtual ~NotificationCenter() = default;

    virtual void post(const QString &name, const UserInfo &userInfo);

    [[nodiscard]] Observation observe(const QString &name, Delivery delivery, Callback callback);

private:
    struct Observer
    {
        QString name;
        Delivery delivery;
        Callback callback;
    };

    Executor &m_mainExecutor;
    std::mutex m_mutex;
    std::vector<std::weak_ptr<Observer>> m_observers;
};

} // namespace tolvane
