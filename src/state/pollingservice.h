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

/// Polls tickets for the reply to the customer's message, since pushes are unreliable.
///
/// One loop per ticket fetches it every second and broadcasts new messages as "didReceiveMessage".
/// It ends at the first such broadcast for the ticket (from any poster), after 120 seconds, or
/// after 5 consecutive failures. The service owns the loops; they outlive the screens.
///
/// The service runs on the polling executor; its public operations are safe from any thread.
class TOLVANE_AUTOTEST_EXPORT PollingService final
    : public std::enable_shared_from_this<PollingService>
{
public:
    static std::shared_ptr<PollingService> shared();

    PollingService();

    /// Starts polling the ticket, and replaces its running loop, if any.
    /// @param messageCount the number of its known messages
    void startPolling(const QString &ticketId, qsizetype messageCount);

    /// Stops the ticket's loop, if any.
    void stopPolling(const QString &ticketId);

    /// The tickets with a running loop.
    QFuture<QList<QString>> activeTickets();

private:
    struct PollingTask;
    using Task = std::shared_ptr<PollingTask>;
    /// The delay before the next attempt after a failure; absent to give up.
    using Retry = std::optional<Clock::Duration>;

    static std::shared_ptr<PollingService> make();
    void installObserver();

    void start(const QString &ticketId, qsizetype messageCount);
    void stop(const QString &ticketId);

    QCoro::Task<> run(Task task);
    QCoro::Task<bool> poll(Task task);
    QCoro::Task<> broadcast(Task task, QList<MessageDto> messages);
    /// Reports a failed poll. Counts it, unless the loop's stop was requested.
    Retry recordFailure(const Task &task, const ErrorPtr &error);
    void endByTimeout(const Task &task);
    void endByFailures(const Task &task);
    void onMessage(const NotificationCenter::UserInfo &userInfo);

    Executor &m_executor;
    QHash<QString, Task> m_activePollingTasks;
    NotificationCenter::Observation m_notificationObserver;
    /// The loop whose messages are being broadcast, if any. Main thread.
    Task m_broadcastingTask;
};

} // namespace tolvane
