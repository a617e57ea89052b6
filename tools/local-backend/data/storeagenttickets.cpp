// SPDX-License-Identifier: MIT
// The functions of the store for the agent page.
#include "data/store.h"

namespace tolvane::backend {

namespace {

#define AGENT_TICKETS                                                                              \
    "SELECT " MESSAGE_COLUMNS ", t.id, t.state, t.assignee, t.automatic, t.channel, t.device,"     \
    " c.id, c.email, c.original_id, c.device_token FROM tickets t"                                 \
    " JOIN customers c ON c.id = t.customer_id JOIN messages m ON m.seq = "                        \
    "t.last"                                                                                       \
    " LEFT JOIN attachments a ON a.message_seq = m.seq"

AgentTicket agentTicketFromRow(const Statement &row)
{
    int column = messageColumns;
    AgentTicket found;
    found.ticket.id = row.getColumn(column++).getString();
    found.ticket.state = stateNamed(row.getColumn(column++).getString());
    found.ticket.assignee = authorNamed(row.getColumn(column++).getString());
    found.isAutomatic = row.getColumn(column++).getInt64() != 0;
    found.channel = row.getColumn(column++).getString();
    found.device = row.getColumn(column++).getString();
    found.customerId = row.getColumn(column++).getString();
    found.email = row.getColumn(column++).getString();
    found.originalId = row.getColumn(column++).getString();
    found.deviceToken = row.getColumn(column++).getString();
    found.ticket.messages = {messageFromRow(row, found.customerId, found.ticket.id)};
    return found;
}

std::vector<AgentTicket> agentTicketsFromRows(Statement &&row)
{
    std::vector<AgentTicket> tickets;
    while (row.executeStep()) {
        if (tickets.empty() ||
            tickets.back().ticket.id != row.getColumn(messageColumns).getString())
            tickets.push_back(agentTicketFromRow(row));
        addAttachmentFromRow(row, tickets.back().ticket.messages.back());
    }
    return tickets;
}

} // namespace

std::vector<AgentTicket> Store::agentTickets()
{
    return agentTicketsFromRows(query(m_database, AGENT_TICKETS " ORDER BY t.last DESC, a.place"));
}

std::optional<AgentTicket> Store::agentTicket(const std::string &ticketId)
{
    std::vector<AgentTicket> found = agentTicketsFromRows(
        query(m_database, AGENT_TICKETS " WHERE t.id = ? ORDER BY a.place", ticketId));
    return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

std::optional<AgentTicket> Store::agentConversation(const std::string &ticketId)
{
    std::optional<AgentTicket> found = agentTicket(ticketId);
    if (found)
        found->ticket.messages = messagesOf(found->customerId, ticketId);
    return found;
}

std::optional<Message> Store::addAgentMessage(const std::string &ticketId, const AgentMessage &sent)
{
    Transaction transaction(m_database);
    if (!hasTicket(ticketId))
        return std::nullopt;
    discardReplies(ticketId);
    if (sent.author == Author::Human)
        run(m_database, "UPDATE tickets SET assignee = ?, automatic = 0 WHERE id = ?",
            nameOf(sent.author), ticketId);
    Message message = newMessage(ticketId, sent.author, sent.message.content);
    message.person = sent.person;
    insertMessage(m_database, message, sent.message.uploads);
    commit(transaction, ticketId, {message});
    return message;
}

bool Store::changeTicket(const std::string &ticketId, const TicketChange &change)
{
    Transaction transaction(m_database);
    if (!hasTicket(ticketId))
        return false;
    const auto assignee = change.assignee ? std::optional(nameOf(*change.assignee)) : std::nullopt;
    run(m_database,
        "UPDATE tickets SET assignee = coalesce(?2, assignee),"
        " automatic = coalesce(?3, automatic) WHERE id = ?1",
        ticketId, assignee, change.isAutomatic);
    std::vector<Push> pushes;
    if (change.state && changeState(ticketId, *change.state))
        pushes.emplace_back(
            Preview{ticketId, *change.state, agentTicket(ticketId)->ticket.messages.back()});
    if (change.state == State::Closed)
        discardReplies(ticketId);
    commit(transaction, ticketId, std::move(pushes));
    return true;
}

std::string Store::addPicture(const Upload &picture)
{
    Transaction transaction(m_database);
    const std::string path = insertPicture(m_database, picture);
    transaction.commit();
    return path;
}

std::optional<std::string> Store::setting(const std::string &name)
{
    Statement row = query(m_database, "SELECT value FROM settings WHERE name = ?", name);
    return row.executeStep() ? std::optional(row.getColumn(0).getString()) : std::nullopt;
}

void Store::saveSetting(const std::string &name, const std::string &value)
{
    run(m_database, "INSERT OR REPLACE INTO settings (name, value) VALUES (?, ?)", name, value);
}

} // namespace tolvane::backend
