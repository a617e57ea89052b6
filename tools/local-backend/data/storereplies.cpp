// SPDX-License-Identifier: MIT
// The functions of the store for the scripted agents.
#include "base/text.h"
#include "data/store.h"

#include <array>

namespace tolvane::backend {

namespace {

constexpr std::array<std::string_view, 2> replyKinds = {"message", "introduction"};

std::string_view nameOf(ReplyKind kind)
{
    return replyKinds.at(static_cast<std::size_t>(kind));
}

} // namespace

std::optional<Instant>
Store::sendDueReply(const std::function<ReplyOutcome(const PendingReply &)> &decide)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_database);
    const std::optional<PendingReply> reply = nextReply();
    if (!reply)
        return std::nullopt;
    if (reply->due <= now()) {
        commit(transaction, reply->ticketId, applyOutcome(*reply, decide(*reply)));
    }
    return reply->due;
}

std::optional<PendingReply> Store::nextReply()
{
    Statement row = m_database.query(
        "SELECT r.id, r.kind, r.message_seq, r.due, m.ticket_id, t.assignee, m.content,"
        " (SELECT count(*) FROM attachments a WHERE a.message_seq = m.seq),"
        " EXISTS (SELECT 1 FROM messages l WHERE l.ticket_id = m.ticket_id AND l.seq > m.seq"
        "  AND l.author = 'customer')"
        " FROM replies r JOIN messages m ON m.seq = r.message_seq"
        " JOIN tickets t ON t.id = m.ticket_id WHERE t.automatic ORDER BY r.due, r.id LIMIT 1");
    if (!row.step())
        return std::nullopt;
    PendingReply reply;
    reply.id = row.number(0);
    reply.kind =
        row.text(1) == nameOf(ReplyKind::Message) ? ReplyKind::Message : ReplyKind::Introduction;
    reply.messageSeq = row.number(2);
    reply.due = row.number(3);
    reply.ticketId = row.text(4);
    reply.assignee = authorNamed(row.text(5));
    reply.content = row.text(6);
    reply.attachmentCount = static_cast<int>(row.number(7));
    reply.hasNewerMessage = row.number(8) != 0;
    return reply;
}

std::vector<Push> Store::applyOutcome(const PendingReply &reply, const ReplyOutcome &outcome)
{
    m_database.run("DELETE FROM replies WHERE id = ?", reply.id);
    Message message;
    message.ticketId = reply.ticketId;
    message.author = reply.assignee;
    message.content = outcome.content;
    insertMessage(message);
    if (outcome.newAssignee)
        m_database.run("UPDATE tickets SET assignee = ? WHERE id = ?", nameOf(*outcome.newAssignee),
                       reply.ticketId);
    if (outcome.introductionDue)
        enqueueReply(ReplyKind::Introduction, reply.messageSeq, *outcome.introductionDue);
    std::vector<Push> pushes = {message};
    if (outcome.closes && changeState(reply.ticketId, State::Closed))
        pushes.emplace_back(Preview{reply.ticketId, State::Closed, message});
    return pushes;
}

void Store::discardReplies(const std::string &ticketId)
{
    m_database.run("DELETE FROM replies WHERE message_seq IN"
                   " (SELECT seq FROM messages WHERE ticket_id = ?)",
                   ticketId);
}

void Store::enqueueReply(ReplyKind kind, std::int64_t messageSeq, Instant due)
{
    m_database.run("INSERT INTO replies (kind, message_seq, due) VALUES (?, ?, ?)", nameOf(kind),
                   messageSeq, due);
}

} // namespace tolvane::backend
