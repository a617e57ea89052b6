// SPDX-License-Identifier: MIT
#include "agents/replyscheduler.h"

#include "agents/agent.h"
#include "base/text.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace tolvane::backend {

namespace {

using std::chrono::milliseconds;

// The delay before a reply that could not be stored, for instance on a full disk, is tried again.
constexpr milliseconds retryDelay{1000};

} // namespace

ReplyScheduler::ReplyScheduler(Store &store, const LiveSettings &settings,
                               std::chrono::milliseconds replyDelay)
    : m_store(store)
    , m_settings(settings)
    , m_replyDelay(replyDelay)
{
}

milliseconds ReplyScheduler::sendDueReply()
{
    if (now() >= m_nextLook) {
        try {
            m_nextLook = nextDueTime();
        } catch (const std::exception &error) {
            std::fprintf(stderr, "tolvane-backend: a reply failed and will be retried: %s\n",
                         error.what());
            m_nextLook = now() + retryDelay.count();
        }
    }
    return milliseconds(std::max<Instant>(m_nextLook - now(), 0));
}

Instant ReplyScheduler::nextDueTime()
{
    if (!m_settings.current().repliesAutomatically)
        return std::numeric_limits<Instant>::max();
    return m_store.sendDueReply([this](const PendingReply &reply) { return outcomeOf(reply); })
        .value_or(std::numeric_limits<Instant>::max());
}

ReplyOutcome ReplyScheduler::outcomeOf(const PendingReply &reply) const
{
    ReplyOutcome outcome;
    if (reply.kind == ReplyKind::Introduction) {
        outcome.content = introduction();
        return outcome;
    }
    const std::string hours = openingHours(m_settings.current().schedules);
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

} // namespace tolvane::backend
