// SPDX-License-Identifier: MIT
#include "data/store.h"

#include "base/jsonnode.h"
#include "base/text.h"
#include "data/messagerows.h"

namespace tolvane::backend {

Store::Store(Database database, SendPush sendPush, NotifyChange notifyChange)
    : m_database(std::move(database))
    , m_sendPush(std::move(sendPush))
    , m_notifyChange(std::move(notifyChange))
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

Ticket Store::createTicket(const std::string &customer, const NewTicket &ticket, Instant replyDue)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_database);
    ensureCustomer(customer);
    Ticket created;
    created.id = newId();
    m_database.run("INSERT INTO tickets (id, customer_id, state, assignee, channel, device)"
                   " VALUES (?, ?, ?, ?, ?, ?)",
                   created.id, customer, nameOf(created.state), nameOf(created.assignee),
                   ticket.channel, toText(Json(ticket.device)));
    created.messages = {
        insertCustomerMessage(customer, created.id, ticket.message, replyDue),
    };
    commit(transaction, created.id, {});
    return created;
}

std::optional<Message> Store::addMessage(const std::string &customer, const std::string &ticketId,
                                         const NewMessage &message, Instant replyDue)
{
    const std::lock_guard lock(m_mutex);
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
    const int read = m_database.run(
        "UPDATE messages SET is_read = 1 WHERE ticket_id = ? AND is_read = 0", ticketId);
    ticket.messages = messagesOf(customer, ticketId);
    transaction.commit();
    if (read > 0)
        m_notifyChange(ticketId);
    return ticket;
}

std::vector<Preview> Store::previews(const std::string &customer)
{
    const std::lock_guard lock(m_mutex);
    std::vector<Preview> previews;
    Statement row = m_database.query("SELECT " MESSAGE_COLUMNS ", t.id, t.state"
                                     " FROM tickets t JOIN messages m ON m.seq = t.last"
                                     " LEFT JOIN attachments a ON a.message_seq = m.seq"
                                     " WHERE t.customer_id = ? ORDER BY t.last DESC, a.place",
                                     customer);
    while (row.step()) {
        const std::string ticketId = row.text(messageColumns);
        if (previews.empty() || previews.back().id != ticketId)
            previews.push_back({ticketId, stateNamed(row.text(messageColumns + 1)),
                                messageFromRow(row, customer, ticketId)});
        addAttachmentFromRow(row, previews.back().lastMessage);
    }
    return previews;
}

std::optional<StoredFile> Store::file(const std::string &hash, const std::string &name)
{
    const std::lock_guard lock(m_mutex);
    Statement row =
        m_database.query("SELECT n.mime_type, f.bytes FROM (SELECT hash, name, mime_type FROM "
                         "attachments"
                         "  UNION ALL SELECT hash, name, mime_type FROM pictures) n"
                         " JOIN files f ON f.hash = n.hash WHERE n.hash = ? AND n.name = ? LIMIT "
                         "1",
                         hash, name);
    if (!row.step())
        return std::nullopt;
    return StoredFile{row.text(0), row.text(1)};
}

std::int64_t Store::insertMessage(Message &message)
{
    message.id = newId();
    message.at = now();
    // Customers have read their own messages.
    message.isRead = message.author == Author::Customer;
    std::optional<std::string> name;
    std::optional<std::string> picture;
    if (message.person) {
        name = message.person->name;
        picture = message.person->picture;
    }
    m_database.run("INSERT INTO messages"
                   " (id, ticket_id, author, content, is_read, at, person_name, "
                   "person_picture)"
                   " VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
                   message.id, message.ticketId, nameOf(message.author), message.content,
                   message.isRead, message.at, name, picture);
    const std::int64_t seq = m_database.lastInsertId();
    m_database.run("UPDATE tickets SET last = ? WHERE id = ?", seq, message.ticketId);
    return seq;
}

void Store::insertUploads(std::int64_t seq, Message &message, const std::vector<Upload> &uploads)
{
    for (const Upload &upload : uploads) {
        const File file = insertFile(upload);
        m_database.run("INSERT INTO attachments (message_seq, place, hash, name, mime_type)"
                       " VALUES (?, ?, ?, ?, ?)",
                       seq, message.attachments.size(), file.hash, file.name, upload.mimeType);
        message.attachments.push_back(filePath(file.hash, file.name));
    }
}

Store::File Store::insertFile(const Upload &upload)
{
    const File file{sha256Hex(upload.bytes), safeFileName(upload.fileName)};
    m_database.run("INSERT OR IGNORE INTO files (hash, bytes) VALUES (?, ?)", file.hash,
                   Blob{upload.bytes});
    return file;
}

Message Store::insertCustomerMessage(const std::string &customer, const std::string &ticketId,
                                     const NewMessage &message, Instant replyDue)
{
    Message inserted;
    inserted.ticketId = ticketId;
    inserted.customerId = customer;
    inserted.content = message.content;
    const std::int64_t seq = insertMessage(inserted);
    insertUploads(seq, inserted, message.uploads);
    enqueueReply(ReplyKind::Message, seq, replyDue);
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
    m_notifyChange(ticketId);
    if (token.empty())
        return;
    for (Push &push : pushes)
        m_sendPush(token, std::move(push));
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

bool Store::hasTicket(const std::string &ticketId)
{
    return m_database.query("SELECT 1 FROM tickets WHERE id = ?", ticketId).step();
}

std::vector<Message> Store::messagesOf(const std::string &customer, const std::string &ticketId)
{
    std::vector<Message> messages;
    Statement row = m_database.query("SELECT " MESSAGE_COLUMNS " FROM messages m"
                                     " LEFT JOIN attachments a ON a.message_seq = m.seq"
                                     " WHERE m.ticket_id = ? ORDER BY m.seq, a.place",
                                     ticketId);
    while (row.step()) {
        if (messages.empty() || messages.back().id != row.text(0))
            messages.push_back(messageFromRow(row, customer, ticketId));
        addAttachmentFromRow(row, messages.back());
    }
    return messages;
}

} // namespace tolvane::backend
