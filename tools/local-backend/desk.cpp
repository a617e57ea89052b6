// SPDX-License-Identifier: MIT
#include "desk.h"

#include "agent.h"
#include "text.h"

#include <algorithm>
#include <cstdio>

namespace tolvane::backend {

namespace {

using std::chrono::milliseconds;

// The delay before a reply that could not be stored, for instance on a full disk, is tried again.
constexpr milliseconds retryDelay{1000};

// The wait without a pending reply. wake() ends it; the bound is arbitrary.
constexpr milliseconds nothingOwed = std::chrono::hours(24);

} // namespace

Desk::Desk(Store &store, const LiveSettings &settings, std::chrono::milliseconds replyDelay)
    : m_store(store)
    , m_settings(settings)
    , m_replyDelay(replyDelay)
    , m_worker([this](const std::stop_token &stop) { work(stop); })
{
}

Ticket Desk::open(const std::string &customer, const NewTicket &ticket)
{
    Ticket created = m_store.createTicket(customer, ticket, dueTime());
    wake();
    return created;
}

std::optional<Message> Desk::post(const std::string &customer, const std::string &ticketId,
                                  const NewMessage &message)
{
    std::optional<Message> added = m_store.addMessage(customer, ticketId, message, dueTime());
    wake();
    return added;
}

void Desk::work(const std::stop_token &stop)
{
    while (!stop.stop_requested()) {
        milliseconds pause = retryDelay;
        try {
            pause = serve();
        } catch (const std::exception &error) {
            std::fprintf(stderr, "tolvane-backend: a reply failed and will be retried: %s\n",
                         error.what());
        }
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, stop, pause, [this] { return m_hasChanged; });
        m_hasChanged = false;
    }
}

milliseconds Desk::serve()
{
    if (!m_settings.now()->answersAutomatically)
        return nothingOwed;
    const std::optional<Instant> due =
        m_store.giveDueReply([this](const PendingReply &reply) { return settlementOf(reply); });
    return due ? milliseconds(std::max<Instant>(*due - now(), 0)) : nothingOwed;
}

Settlement Desk::settlementOf(const PendingReply &reply) const
{
    Settlement settlement;
    if (reply.kind == ReplyKind::Introduction) {
        settlement.content = introduction();
        return settlement;
    }
    const std::shared_ptr<const Settings> settings = m_settings.now();
    Answer answer = answerTo({.assignee = reply.assignee,
                              .text = reply.content,
                              .attachmentCount = reply.attachmentCount,
                              .isOvertaken = reply.isOvertaken,
                              .openingHours = settings->schedules.openingHours});
    settlement.content = std::move(answer.text);
    if (answer.effect == Effect::HandOver) {
        settlement.newAssignee = Author::Human;
        settlement.introductionDue = dueTime();
    }
    settlement.closes = answer.effect == Effect::Close;
    return settlement;
}

Instant Desk::dueTime() const
{
    return now() + m_replyDelay.count();
}

void Desk::wake()
{
    {
        const std::lock_guard lock(m_mutex);
        m_hasChanged = true;
    }
    m_changed.notify_one();
}

} // namespace tolvane::backend
