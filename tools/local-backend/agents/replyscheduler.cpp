// SPDX-License-Identifier: MIT
#include "agents/replyscheduler.h"

#include "agents/agent.h"
#include "base/text.h"

#include <algorithm>
#include <cstdio>

namespace tolvane::backend {

namespace {

using std::chrono::milliseconds;

// The delay before a reply that could not be stored, for instance on a full disk, is tried again.
constexpr milliseconds retryDelay{1000};

// The wait without a pending reply. wake() ends it; the bound is arbitrary.
constexpr milliseconds idleInterval = std::chrono::hours(24);

} // namespace

ReplyScheduler::ReplyScheduler(Store &store, const LiveSettings &settings,
                               std::chrono::milliseconds replyDelay)
    : m_store(store)
    , m_settings(settings)
    , m_replyDelay(replyDelay)
    , m_thread([this](const std::stop_token &stop) { run(stop); })
{
}

Ticket ReplyScheduler::createTicket(const std::string &customer, const NewTicket &ticket)
{
    Ticket created = m_store.createTicket(customer, ticket, dueTime());
    wake();
    return created;
}

std::optional<Message> ReplyScheduler::addMessage(const std::string &customer,
                                                  const std::string &ticketId,
                                                  const NewMessage &message)
{
    std::optional<Message> added = m_store.addMessage(customer, ticketId, message, dueTime());
    wake();
    return added;
}

void ReplyScheduler::run(const std::stop_token &stop)
{
    while (!stop.stop_requested()) {
        milliseconds pause = retryDelay;
        try {
            pause = sendDueReply();
        } catch (const std::exception &error) {
            std::fprintf(stderr, "tolvane-backend: a reply failed and will be retried: %s\n",
                         error.what());
        }
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, stop, pause, [this] { return m_hasChanged; });
        m_hasChanged = false;
    }
}

milliseconds ReplyScheduler::sendDueReply()
{
    if (!m_settings.current()->repliesAutomatically)
        return idleInterval;
    const std::optional<Instant> due =
        m_store.sendDueReply([this](const PendingReply &reply) { return outcomeOf(reply); });
    return due ? milliseconds(std::max<Instant>(*due - now(), 0)) : idleInterval;
}

ReplyOutcome ReplyScheduler::outcomeOf(const PendingReply &reply) const
{
    ReplyOutcome outcome;
    if (reply.kind == ReplyKind::Introduction) {
        outcome.content = introduction();
        return outcome;
    }
    const std::string hours = openingHours(m_settings.current()->schedules);
    Reply scripted = replyTo({.assignee = reply.assignee,
                              .text = reply.content,
                              .attachmentCount = reply.attachmentCount,
                              .hasNewerMessage = reply.hasNewerMessage,
                              .openingHours = hours});
    outcome.content = std::move(scripted.text);
    if (scripted.effect == Effect::HandOver) {
        outcome.newAssignee = Author::Human;
        outcome.introductionDue = dueTime();
    }
    outcome.closes = scripted.effect == Effect::Close;
    return outcome;
}

Instant ReplyScheduler::dueTime() const
{
    return now() + m_replyDelay.count();
}

void ReplyScheduler::wake()
{
    {
        const std::lock_guard lock(m_mutex);
        m_hasChanged = true;
    }
    m_changed.notify_one();
}

} // namespace tolvane::backend
