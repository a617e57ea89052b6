// SPDX-License-Identifier: MIT
#include "data/store.h"

#include "base/jsonnode.h"
#include "base/text.h"

namespace tolvane::backend {

Store::Store(Database database, SendPush sendPush, NotifyChange notifyChange)
    : m_database(std::move(database))
    , m_sendPush(std::move(sendPush))
    , m_notifyChange(std::move(notifyChange))
{
}

void Store::updateCustomer(const std::string &customer, const CustomerUpdate &update)
{
    Transaction transaction(m_database);
    ensureCustomer(customer);
    run(m_database,
        "UPDATE customers SET email = coalesce(?2, email),"
        " original_id = coalesce(?3, original_id),"
        " device_token = coalesce(?4, device_token) WHERE id = ?1",
        customer, update.email, update.originalId, update.deviceToken);
    transaction.commit();
}

Ticket Store::createTicket(const std::string &customer, const NewTicket &ticket, Instant replyDue)
{
    Transaction transaction(m_database);
    ensureCustomer(customer);
    Ticket created;
    created.id = newId();
    run(m_database,
        "INSERT INTO tickets (id, customer_id, state, assignee, channel, device)"
        " VALUES (?, ?, ?, ?, ?, ?)",
        created.id, customer, nameOf(created.state), nameOf(created.assignee), ticket.channel,
        toText(Json(ticket.device)));
    created.messages = {
        insertCustomerMessage(customer, created.id, ticket.message, replyDue),
    };
    commit(transaction, created.id, {});
    return created;
}

std::optional<Message> Store::addMessage(const std::string &customer, const std::string &ticketId,
                                         const NewMessage &message, Instant replyDue)
{
    Transaction transaction(m_database);
    if (!hasTicket(customer, ticketId))
        return std::nullopt;
    Message added = insertCustomerMessage(customer, ticketId, message, replyDue);
    std::vector<Push> pushes;
    if (changeState(ticketId, State::Open))
        pushes.emplace_back(Preview{ticketId, State::Open, added});
    commit(transaction, ticketId, std::move(pushes));
    return added;
}

std::optional<Ticket> Store::readTicket(const std::string &customer, const std::string &ticketId)
{
    Transaction transaction(m_database);
    Ticket ticket;
    {
        Statement row = query(
            m_database, "SELECT state, assignee FROM tickets WHERE id = ? AND customer_id = ?",
            ticketId, customer);
        if (!row.executeStep())
            return std::nullopt;
        ticket.id = ticketId;
        ticket.state = stateNamed(row.getColumn(0).getString());
        ticket.assignee = authorNamed(row.getColumn(1).getString());
    }
    const int read =
        run(m_database, "UPDATE messages SET is_read = 1 WHERE ticket_id = ? AND is_read = 0",
            ticketId);
    ticket.messages = messagesOf(customer, ticketId);
    transaction.commit();
    if (read > 0)
        m_notifyChange(ticketId);
    return ticket;
}

std::vector<Preview> Store::previews(const std::string &customer)
{
    std::vector<Preview> previews;
    Statement row = query(m_database,
                          "SELECT " MESSAGE_COLUMNS ", t.id, t.state"
                          " FROM tickets t JOIN messages m ON m.seq = t.last"
                          " LEFT JOIN attachments a ON a.message_seq = m.seq"
                          " WHERE t.customer_id = ? ORDER BY t.last DESC, a.place",
                          customer);
    while (row.executeStep()) {
        const std::string ticketId = row.getColumn(messageColumns).getString();
        if (previews.empty() || previews.back().id != ticketId)
            previews.push_back({ticketId, stateNamed(row.getColumn(messageColumns + 1).getString()),
                                messageFromRow(row, customer, ticketId)});
        addAttachmentFromRow(row, previews.back().lastMessage);
    }
    return previews;
}

std::optional<StoredFile> Store::file(const std::string &hash, const std::string &name)
{
    Statement row = query(m_database,
                          "SELECT n.mime_type, f.bytes FROM (SELECT hash, name, mime_type FROM "
                          "attachments"
                          "  UNION ALL SELECT hash, name, mime_type FROM pictures) n"
                          " JOIN files f ON f.hash = n.hash WHERE n.hash = ? AND n.name = ? LIMIT "
                          "1",
                          hash, name);
    if (!row.executeStep())
        return std::nullopt;
    return StoredFile{row.getColumn(0).getString(), row.getColumn(1).getString()};
}

Message Store::insertCustomerMessage(const std::string &customer, const std::string &ticketId,
                                     const NewMessage &message, Instant replyDue)
{
    Message inserted = newMessage(ticketId, Author::Customer, message.content);
    inserted.customerId = customer;
    const std::int64_t seq = insertMessage(m_database, inserted, message.uploads);
    enqueueReply(m_database, ReplyKind::Message, seq, replyDue);
    return inserted;
}

bool Store::changeState(const std::string &ticketId, State state)
{
    return run(m_database, "UPDATE tickets SET state = ?2 WHERE id = ?1 AND state <> ?2", ticketId,
               nameOf(state)) > 0;
}

void Store::commit(Transaction &transaction, const std::string &ticketId, std::vector<Push> pushes)
{
    std::string token;
    if (Statement row = query(m_database,
                              "SELECT c.device_token FROM tickets t"
                              " JOIN customers c ON c.id = t.customer_id WHERE t.id = ?",
                              ticketId);
        row.executeStep())
        token = row.getColumn(0).getString();
    transaction.commit();
    m_notifyChange(ticketId);
    if (token.empty())
        return;
    for (Push &push : pushes)
        m_sendPush(token, std::move(push));
}

void Store::ensureCustomer(const std::string &customer)
{
    run(m_database, "INSERT OR IGNORE INTO customers (id) VALUES (?)", customer);
}

bool Store::hasTicket(const std::string &customer, const std::string &ticketId)
{
    return query(m_database, "SELECT 1 FROM tickets WHERE id = ? AND customer_id = ?", ticketId,
                 customer)
        .executeStep();
}

bool Store::hasTicket(const std::string &ticketId)
{
    return query(m_database, "SELECT 1 FROM tickets WHERE id = ?", ticketId).executeStep();
}

std::vector<Message> Store::messagesOf(const std::string &customer, const std::string &ticketId)
{
    std::vector<Message> messages;
    Statement row = query(m_database,
                          "SELECT " MESSAGE_COLUMNS " FROM messages m"
                          " LEFT JOIN attachments a ON a.message_seq = m.seq"
                          " WHERE m.ticket_id = ? ORDER BY m.seq, a.place",
                          ticketId);
    while (row.executeStep()) {
        if (messages.empty() || messages.back().id != row.getColumn(0).getString())
            messages.push_back(messageFromRow(row, customer, ticketId));
        addAttachmentFromRow(row, messages.back());
    }
    return messages;
}

} // namespace tolvane::backend
