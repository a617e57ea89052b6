// SPDX-License-Identifier: MIT
#include "store.h"

#include "json.h"
#include "text.h"

namespace tolvane::backend {

namespace {

// The first columns of each query for messages, with a row for each attachment.
#define MESSAGE_COLUMNS                                                                            \
    "m.id, m.author, m.content, m.is_read, m.at, a.hash, a.name, s.agent_id, s.name, s.picture"
#define MESSAGE_DETAILS                                                                            \
    " LEFT JOIN attachments a ON a.message_seq = m.seq"                                            \
    " LEFT JOIN signatures s ON s.message_seq = m.seq"

Message messageAt(const Statement &row, const std::string &customer, const std::string &ticketId)
{
    Message message;
    message.id = row.text(0);
    message.ticketId = ticketId;
    message.author = authorNamed(row.text(1));
    if (message.author == Author::Customer)
        message.customerId = customer;
    message.content = row.text(2);
    message.isRead = row.number(3) != 0;
    message.at = row.number(4);
    if (const std::string agent = row.text(7); !agent.empty())
        message.signature = {agent, row.text(8), row.text(9)};
    return message;
}

std::string attachmentPath(std::string_view hash, std::string_view name)
{
    return std::string(hash) + '/' + std::string(name);
}

void addAttachmentAt(const Statement &row, Message &message)
{
    if (const std::string hash = row.text(5); !hash.empty())
        message.attachments.push_back(attachmentPath(hash, row.text(6)));
}

} // namespace

Store::Store(Database database, Announce announce)
    : m_database(std::move(database))
    , m_announce(std::move(announce))
{
}

void Store::updateCustomer(const std::string &customer, const CustomerUpdate &update)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_database);
    ensureCustomer(customer);
    m_database.run("UPDATE customers SET email = coalesce(?2, email),"
                   " original_id = coalesce(?3, original_id),"
                   " device_token = coalesce(?4, device_token) WHERE id = ?1",
                   customer, update.email, update.originalId, update.deviceToken);
    transaction.commit();
}

Ticket Store::createTicket(const std::string &customer, const NewTicket &ticket, Instant answerDue)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_database);
    ensureCustomer(customer);
    Ticket created;
    created.id = newId();
    m_database.run("INSERT INTO tickets (id, customer_id, state, assignee, channel, device)"
                   " VALUES (?, ?, ?, ?, ?, ?)",
                   created.id, customer, nameOf(created.state), nameOf(created.assignee),
                   ticket.channel, toJson(ticket.device));
    created.messages = {
        insertCustomerMessage(customer, created.id, ticket.message, answerDue),
    };
    transaction.commit();
    return created;
}

std::optional<Message> Store::addMessage(const std::string &customer, const std::string &ticketId,
                                         const NewMessage &message, Instant answerDue)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_database);
    if (!hasTicket(customer, ticketId))
        return std::nullopt;
    Message added = insertCustomerMessage(customer, ticketId, message, answerDue);
    std::vector<Push> pushes;
    if (changeState(ticketId, State::Open))
        pushes.emplace_back(Preview{ticketId, State::Open, added});
    commit(transaction, ticketId, std::move(pushes));
    return added;
}

std::optional<Ticket> Store::readTicket(const std::string &customer, const std::string &ticketId)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_database);
    Ticket ticket;
    {
        Statement row =
            m_database.query("SELECT state, assignee FROM tickets WHERE id = ? AND customer_id = ?",
                             ticketId, customer);
        if (!row.step())
            return std::nullopt;
        ticket.id = ticketId;
        ticket.state = stateNamed(row.text(0));
        ticket.assignee = authorNamed(row.text(1));
    }
    m_database.run("UPDATE messages SET is_read = 1 WHERE ticket_id = ? AND is_read = 0", ticketId);
    ticket.messages = messagesOf(customer, ticketId);
    transaction.commit();
    return ticket;
}

std::vector<Preview> Store::previews(const std::string &customer)
{
    const std::lock_guard lock(m_mutex);
    std::vector<Preview> previews;
    Statement row =
        m_database.query("SELECT " MESSAGE_COLUMNS ", t.id, t.state"
                         " FROM tickets t JOIN messages m ON m.seq = t.last" MESSAGE_DETAILS
                         " WHERE t.customer_id = ? ORDER BY t.last DESC, a.place",
                         customer);
    while (row.step()) {
        const std::string ticketId = row.text(10);
        if (previews.empty() || previews.back().id != ticketId)
            previews.push_back(
                {ticketId, stateNamed(row.text(11)), messageAt(row, customer, ticketId)});
        addAttachmentAt(row, previews.back().lastMessage);
    }
    return previews;
}

std::optional<StoredFile> Store::file(const std::string &hash, const std::string &name)
{
    const std::lock_guard lock(m_mutex);
    Statement row = m_database.query(
        "SELECT a.mime_type, f.bytes FROM attachments a JOIN files f ON f.hash = a.hash"
        " WHERE a.hash = ? AND a.name = ? LIMIT 1",
        hash, name);
    if (!row.step())
        return std::nullopt;
    return StoredFile{row.text(0), row.text(1)};
}

std::optional<StoredFile> Store::picture(const std::string &name)
{
    const std::lock_guard lock(m_mutex);
    Statement row = m_database.query("SELECT mime_type, bytes FROM pictures WHERE name = ?", name);
    if (!row.step())
        return std::nullopt;
    return StoredFile{row.text(0), row.text(1)};
}

std::int64_t Store::insertMessage(Message &message)
{
    message.id = newId();
    message.at = now();
    // Customers have read what they wrote themselves.
    message.isRead = message.author == Author::Customer;
    m_database.run("INSERT INTO messages (id, ticket_id, author, content, is_read, at)"
                   " VALUES (?, ?, ?, ?, ?, ?)",
                   message.id, message.ticketId, nameOf(message.author), message.content,
                   message.isRead, message.at);
    const std::int64_t seq = m_database.lastRow();
    m_database.run("UPDATE tickets SET last = ? WHERE id = ?", seq, message.ticketId);
    return seq;
}

void Store::insertUploads(std::int64_t seq, Message &message, const std::vector<Upload> &uploads)
{
    for (const Upload &upload : uploads) {
        const std::string hash = sha256Hex(upload.bytes);
        const std::string name = safeFileName(upload.fileName);
        m_database.run("INSERT OR IGNORE INTO files (hash, bytes) VALUES (?, ?)", hash,
                       Blob{upload.bytes});
        m_database.run("INSERT INTO attachments (message_seq, place, hash, name, mime_type)"
                       " VALUES (?, ?, ?, ?, ?)",
                       seq, message.attachments.size(), hash, name, upload.mimeType);
        message.attachments.push_back(attachmentPath(hash, name));
    }
}

Message Store::insertCustomerMessage(const std::string &customer, const std::string &ticketId,
                                     const NewMessage &message, Instant answerDue)
{
    Message inserted;
    inserted.ticketId = ticketId;
    inserted.customerId = customer;
    inserted.content = message.content;
    const std::int64_t seq = insertMessage(inserted);
    insertUploads(seq, inserted, message.uploads);
    owe(ReplyKind::Answer, seq, answerDue);
    return inserted;
}

bool Store::changeState(const std::string &ticketId, State state)
{
    return m_database.run("UPDATE tickets SET state = ?2 WHERE id = ?1 AND state <> ?2", ticketId,
                          nameOf(state)) > 0;
}

void Store::commit(Transaction &transaction, const std::string &ticketId, std::vector<Push> pushes)
{
    std::string token;
    if (Statement row = m_database.query("SELECT c.device_token FROM tickets t"
                                         " JOIN customers c ON c.id = t.customer_id WHERE t.id = ?",
                                         ticketId);
        row.step())
        token = row.text(0);
    transaction.commit();
    if (token.empty())
        return;
    for (Push &push : pushes)
        m_announce(token, std::move(push));
}

void Store::ensureCustomer(const std::string &customer)
{
    m_database.run("INSERT OR IGNORE INTO customers (id) VALUES (?)", customer);
}

bool Store::hasTicket(const std::string &customer, const std::string &ticketId)
{
    return m_database
        .query("SELECT 1 FROM tickets WHERE id = ? AND customer_id = ?", ticketId, customer)
        .step();
}

std::vector<Message> Store::messagesOf(const std::string &customer, const std::string &ticketId)
{
    std::vector<Message> messages;
    Statement row = m_database.query("SELECT " MESSAGE_COLUMNS " FROM messages m" MESSAGE_DETAILS
                                     " WHERE m.ticket_id = ? ORDER BY m.seq, a.place",
                                     ticketId);
    while (row.step()) {
        if (messages.empty() || messages.back().id != row.text(0))
            messages.push_back(messageAt(row, customer, ticketId));
        addAttachmentAt(row, messages.back());
    }
    return messages;
}

} // namespace tolvane::backend
