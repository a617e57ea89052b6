// SPDX-License-Identifier: MIT
#include "state/pollingservice.h"

#include "analytics/manager.h"
#include "backend/apiclient.h"
#include "backend/wire/json.h"
#include "base/sharedinstance.h"
#include "platform/async/awaitfuture.h"
#include "platform/logger.h"
#include "platform/platform.h"
#include "state/notifications.h"

#include <algorithm>
#include <cmath>

namespace tolvane {

using namespace std::chrono_literals;

namespace {

constexpr auto pollInterval = 1s;
constexpr auto timeLimit = 120s;
constexpr int maximumFailures = 5;
constexpr double maximumDelay = 30.0;

void logInfo(const QString &phrase, const QString &ticketId)
{
    Logger::shared().log(LogLevel::info, phrase + ticketId);
}

/// The delay after the n-th consecutive failure: 2, 4, 8, 16 seconds.
Clock::Duration failureDelay(int n)
{
    const double seconds = std::min(2.0 * std::pow(2.0, n - 1), maximumDelay);
    return std::chrono::duration_cast<Clock::Duration>(std::chrono::duration<double>(seconds));
}

/// Sends an event from the main thread, in the order of the calls.
void track(const QString &name, const QString &ticketId, QVariantMap properties)
{
    properties.insert(TolvaneAnalyticsEvent::PropertyKeys::ticketId, ticketId);
    properties.insert(TolvaneAnalyticsEvent::PropertyKeys::actionType, QStringLiteral("chat"));
    platform().mainThread->post(
        [name, properties] { TolvaneAnalyticsManager::shared().track(name, properties); });
}

void trackFailure(const QString &ticketId, int consecutiveErrors, const ErrorPtr &error)
{
    platform().mainThread->post([=] {
        TolvaneAnalyticsManager::shared().trackError(
            QStringLiteral("ticket_polling"),
            {{TolvaneAnalyticsEvent::PropertyKeys::ticketId, ticketId},
             {QStringLiteral("consecutive_errors"), consecutiveErrors}},
            *error);
    });
}

bool isFromAgent(const MessageDto &message)
{
    return message.sender.type == words::aiAgent || message.sender.type == words::humanAgent;
}

} // namespace

/// The state of one loop. It is the map's entry for its ticket until its stop is requested; from
/// then on the loop has no effect, and the entry may be that of another loop.
struct PollingService::PollingTask
{
    PollingTask(QString id, qsizetype messageCount)
        : ticketId(std::move(id))
        , lastMessageCount(messageCount)
    {
    }

    const QString ticketId;
    const Clock::Instant startTime = platform().clock->monotonicNow();
    std::stop_source stop;
    qsizetype lastMessageCount;
    QSet<QString> processedMessageIds;
    int consecutiveErrorCount = 0;
    std::optional<Clock::Instant> lastErrorTime;
};

std::shared_ptr<PollingService> PollingService::shared()
{
    return sharedInstance<PollingService>(make);
}

std::shared_ptr<PollingService> PollingService::make()
{
    auto service = std::make_shared<PollingService>();
    service->m_executor.post([service] { service->installObserver(); });
    return service;
}

PollingService::PollingService()
    : m_executor(*platform().pollingThread)
{
}

void PollingService::installObserver()
{
    m_notificationObserver = platform().notificationCenter->observe(
        notifications::didReceiveMessage, NotificationCenter::Delivery::mainThread,
        [service = weak_from_this()](const NotificationCenter::UserInfo &userInfo) {
            if (const auto self = service.lock())
                self->onMessage(userInfo);
        });
}

void PollingService::startPolling(const QString &ticketId, qsizetype messageCount)
{
    m_executor.post([=, self = shared_from_this()] { self->start(ticketId, messageCount); });
}

void PollingService::stopPolling(const QString &ticketId)
{
    m_executor.post([=, self = shared_from_this()] { self->stop(ticketId); });
}

QFuture<QList<QString>> PollingService::activeTickets()
{
    return m_executor.run(
        [self = shared_from_this()] { return self->m_activePollingTasks.keys(); });
}

void PollingService::onMessage(const NotificationCenter::UserInfo &userInfo)
{
    const auto *message = userInfo.record<MessageDto>();
    if (!message)
        return;
    // A loop's own broadcast must not stop the loop that has replaced it meanwhile.
    m_executor.post([self = shared_from_this(), id = message->ticketId,
                     source = m_broadcastingTask] {
        const Task active = self->m_activePollingTasks.value(id);
        if (!active || (source && source != active))
            return;
        logInfo(QStringLiteral("Message received via notification, stopping polling for ticket: "),
                id);
        self->stop(id);
    });
}

void PollingService::start(const QString &ticketId, qsizetype messageCount)
{
    logInfo(QStringLiteral("Starting polling for ticket: "), ticketId);
    stop(ticketId);
    const auto task = std::make_shared<PollingTask>(ticketId, messageCount);
    m_activePollingTasks.insert(ticketId, task);
    track(QStringLiteral("polling_started"), ticketId,
          {{QStringLiteral("message_count"), messageCount}});
    detach(run(task));
}

void PollingService::stop(const QString &ticketId)
{
    const Task task = m_activePollingTasks.take(ticketId);
    if (!task)
        return;
    logInfo(QStringLiteral("Stopping polling for ticket: "), ticketId);
    const std::chrono::duration<double> duration =
        platform().clock->monotonicNow() - task->startTime;
    track(QStringLiteral("polling_stopped"), ticketId,
          {{TolvaneAnalyticsEvent::PropertyKeys::duration, duration.count()},
           {QStringLiteral("reason"), QStringLiteral("manual_stop")}});
    task->stop.request_stop();
}

QCoro::Task<> PollingService::run(Task task)
{
    const auto self = shared_from_this();
    const std::stop_token stop = task->stop.get_token();
    while (!stop.stop_requested()) {
        if (platform().clock->monotonicNow() - task->startTime >= timeLimit) {
            endByTimeout(task);
            co_return;
        }
        ErrorPtr failure;
        try {
            if (co_await poll(task))
                co_return;
            co_await awaitFuture(platform().clock->sleep(pollInterval, stop));
            continue;
        } catch (const CancellationError &) {
            logInfo(QStringLiteral("Polling cancelled for ticket: "), task->ticketId);
            continue;
        } catch (...) {
            failure = currentError();
        }
        const Retry retry = recordFailure(task, failure);
        if (stop.stop_requested())
            co_return;
        if (!retry) {
            endByFailures(task);
            co_return;
        }
        try {
            co_await awaitFuture(platform().clock->sleep(*retry, stop));
        } catch (const CancellationError &) {
            continue; // The loop's condition checks the stop request.
        }
    }
}

/// Fetches the ticket once and broadcasts new messages. True if the loop is over: they contain the
/// awaited reply, or its stop was requested meanwhile.
QCoro::Task<bool> PollingService::poll(Task task)
{
    const APIClient client = APIClient::live();
    const TicketDto ticket = co_await client.getTicket(task->ticketId);
    if (task->stop.stop_requested())
        co_return true;
    if (ticket.messages.size() > task->lastMessageCount) {
        logInfo(QStringLiteral("New messages detected for ticket: "), task->ticketId);
        QList<MessageDto> messages = ticket.messages.sliced(task->lastMessageCount);
        const qsizetype dropped = messages.removeIf([&](const MessageDto &message) {
            return task->processedMessageIds.contains(message.id);
        });
        if (dropped > 0) {
            logInfo(
                QStringLiteral("Skipping %1 already processed messages for ticket: ").arg(dropped),
                task->ticketId);
        }
        co_await broadcast(task, messages);
        if (std::ranges::any_of(messages, isFromAgent)) {
            if (!task->stop.stop_requested())
                stop(task->ticketId);
            co_return true;
        }
        task->lastMessageCount = ticket.messages.size();
    }
    task->consecutiveErrorCount = 0;
    task->lastErrorTime.reset();
    co_return false;
}

QCoro::Task<> PollingService::broadcast(Task task, QList<MessageDto> messages)
{
    if (messages.isEmpty())
        co_return;
    QFuture<void> posted = platform().mainThread->run([self = shared_from_this(), task, messages] {
        if (task->stop.stop_requested())
            return;
        self->m_broadcastingTask = task;
        for (const MessageDto &message : messages) {
            platform().notificationCenter->post(
                notifications::didReceiveMessage,
                UserInfo::fromRecord(message, json::dictionary<MessageDto>));
        }
        self->m_broadcastingTask = nullptr;
    });
    co_await awaitFuture(posted);
    for (const MessageDto &message : messages)
        task->processedMessageIds.insert(message.id);
}

PollingService::Retry PollingService::recordFailure(const Task &task, const ErrorPtr &error)
{
    Logger::shared().log(LogLevel::error, QStringLiteral("Error polling ticket %1: %2")
                                              .arg(task->ticketId, error->localizedDescription()));
    if (!task->stop.stop_requested()) {
        ++task->consecutiveErrorCount;
        task->lastErrorTime = platform().clock->monotonicNow();
    }
    const Task active = m_activePollingTasks.value(task->ticketId);
    trackFailure(task->ticketId, active ? active->consecutiveErrorCount : 0, error);
    const int failures = task->consecutiveErrorCount;
    return failures < maximumFailures ? Retry(failureDelay(failures)) : std::nullopt;
}

void PollingService::endByTimeout(const Task &task)
{
    logInfo(QStringLiteral("Polling timeout reached for ticket: "), task->ticketId);
    stop(task->ticketId);
    track(QStringLiteral("polling_timeout"), task->ticketId,
          {{QStringLiteral("timeout_duration"), std::chrono::duration<double>(timeLimit).count()}});
}

void PollingService::endByFailures(const Task &task)
{
    Logger::shared().log(
        LogLevel::error,
        QStringLiteral("Max consecutive errors reached for ticket %1, stopping polling")
            .arg(task->ticketId));
    stop(task->ticketId);
    track(QStringLiteral("polling_max_errors_reached"), task->ticketId,
          {{QStringLiteral("max_errors"), maximumFailures}});
}

} // namespace tolvane
