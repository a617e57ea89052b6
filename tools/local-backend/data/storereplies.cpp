// SPDX-License-Identifier: MIT
// The functions of the store for the scripted agents.
#include "base/text.h"
#include "data/store.h"

namespace tolvane::backend {

std::optional<Instant>
Store::sendDueReply(const std::function<ReplyOutcome(const PendingReply &)> &decide)
{
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
    Statement row = query(
        m_database,
        "SELECT r.id, r.kind, r.message_seq, r.due, m.ticket_id, t.assignee, m.content,"
        " (SELECT count(*) FROM attachments a WHERE a.message_seq = m.seq),"
        " EXISTS (SELECT 1 FROM messages l WHERE l.ticket_id = m.ticket_id AND l.seq > m.seq"
        "  AND l.author = 'customer')"
        " FROM replies r JOIN messages m ON m.seq = r.message_seq"
        " JOIN tickets t ON t.id = m.ticket_id WHERE t.automatic ORDER BY r.due, r.id LIMIT 1");
    if (!row.executeStep())
        return std::nullopt;
    PendingReply reply;
    reply.id = row.getColumn(0).getInt64();
    reply.kind = replyKindNamed(row.getColumn(1).getString());
    reply.messageSeq = row.getColumn(2).getInt64();
    reply.due = row.getColumn(3).getInt64();
    reply.ticketId = row.getColumn(4).getString();
    reply.assignee = authorNamed(row.getColumn(5).getString());
    reply.content = row.getColumn(6).getString();
    reply.attachmentCount = static_cast<int>(row.getColumn(7).getInt64());
    reply.hasNewerMessage = row.getColumn(8).getInt64() != 0;
    return reply;
}

std::vector<Push> Store::applyOutcome(const PendingReply &reply, const ReplyOutcome &outcome)
{
    run(m_database, "DELETE FROM replies WHERE id = ?", reply.id);
    Message message = newMessage(reply.ticketId, reply.assignee, outcome.content);
    insertMessage(m_database, message);
    if (outcome.newAssignee)
        run(m_database, "UPDATE tickets SET assignee = ? WHERE id = ?",
            nameOf(*outcome.newAssignee), reply.ticketId);
    if (outcome.introductionDue)
        enqueueReply(m_database, ReplyKind::Introduction, reply.messageSeq,
                     *outcome.introductionDue);
    std::vector<Push> pushes = {message};
    if (outcome.closes && changeState(reply.ticketId, State::Closed))
        pushes.emplace_back(Preview{reply.ticketId, State::Closed, message});
    return pushes;
}

void Store::discardReplies(const std::string &ticketId)
{
    run(m_database,
        "DELETE FROM replies WHERE message_seq IN"
        " (SELECT seq FROM messages WHERE ticket_id = ?)",
        ticketId);
}

} // namespace tolvane::backend
