// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "platform/async/clock.h"
#include "platform/async/notificationcenter.h"

#include <tolvane/error.h>

#include <QCoroTask>
#include <QtCore/QHash>
#include <QtCore/QSet>

#include <memory>
#include <optional>
#include <stop_token>

namespace tolvane {

class Executor;

/// Watches tickets for the answer to the customer's message, since a push may never come.
///
/// One loop a ticket fetches it every second and broadcasts what is new as "didReceiveMessage". It
/// ends at the first such broadcast for the ticket, from whom it may come, after 120 seconds, or
/// after 5 failures in a row. Loops belong to this service and outlive the screens.
///
/// All of it runs on the polling executor; the public operations are safe from any thread.
class TOLVANE_AUTOTEST_EXPORT PollingService final
    : public std::enable_shared_from_this<PollingService>
{
public:
    static std::shared_ptr<PollingService> shared();

    PollingService();

    /// Polls the ticket from now on, in place of a loop that may be running for it.
    /// @param messageCount how many of its messages are known
    void startPolling(const QString &ticketId, qsizetype messageCount);

    /// Ends the ticket's loop, if there is one.
    void stopPolling(const QString &ticketId);

    /// The tickets with a running loop.
    QFuture<QList<QString>> activeTickets();

private:
    struct PollingTask;
    using Task = std::shared_ptr<PollingTask>;
    /// How to go on after a failure: the delay before the next try, or not at all.
    using Retry = std::optional<Clock::Duration>;

    static std::shared_ptr<PollingService> make();
    void installObserver();

    void start(const QString &ticketId, qsizetype messageCount);
    void stop(const QString &ticketId);
    void stopIfCurrent(const Task &task);
    void removeIfCurrent(const Task &task);
    bool isCurrent(const Task &task) const;

    QCoro::Task<> run(Task task);
    QCoro::Task<bool> poll(Task task);
    QCoro::Task<> announce(Task task, QList<MessageDto> messages);
    Retry recordFailure(const Task &task, const ErrorPtr &error);
    void endByTimeout(const Task &task);
    void endByFailures(const Task &task);
    void onMessage(const NotificationCenter::UserInfo &userInfo);

    Executor &m_executor;
    QHash<QString, Task> m_activePollingTasks;
    NotificationCenter::Observation m_notificationObserver;
};

} // namespace tolvane
