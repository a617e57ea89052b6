// SPDX-License-Identifier: MIT
#include "data/seed.h"

#include "base/text.h"
#include "data/seedfile.h"

#include <algorithm>

namespace tolvane::backend {

namespace {

/// A message and its ticket.
struct Entry
{
    const SeededMessage *message;
    const SeededConversation *conversation;
    std::string ticketId;
};

Author assigneeOf(const SeededConversation &conversation)
{
    const auto agent =
        std::find_if(conversation.messages.rbegin(), conversation.messages.rend(),
                     [](const auto &seeded) { return seeded.message.author != Author::Customer; });
    return agent == conversation.messages.rend() ? Author::Ai : agent->message.author;
}

/// Returns the hash that is the key of the bytes.
std::string insertFile(const Upload &file, Database &database)
{
    std::string hash = sha256Hex(file.bytes);
    database.run("INSERT OR IGNORE INTO files (hash, bytes) VALUES (?, ?)", hash, Blob{file.bytes});
    return hash;
}

void insertPictures(const Seed &seed, Database &database)
{
    for (const Upload &picture : seed.pictures) {
        database.run("INSERT OR IGNORE INTO pictures (hash, name, mime_type) "
                     "VALUES (?, ?, ?)",
                     insertFile(picture, database), picture.fileName, picture.mimeType);
    }
}

void insertAttachments(std::int64_t seq, const SeededMessage &message, Database &database)
{
    std::int64_t index = 0;
    for (const Upload &attachment : message.attachments) {
        const std::string hash = insertFile(attachment, database);
        database.run("INSERT INTO attachments (message_seq, place, hash, name, mime_type)"
                     " VALUES (?, ?, ?, ?, ?)",
                     seq, index++, hash, attachment.fileName, attachment.mimeType);
    }
}

void insertMessage(const Entry &entry, Instant now, Database &database)
{
    const Message &message = entry.message->message;
    std::optional<std::string> name;
    std::optional<std::string> picture;
    if (message.person) {
        name = message.person->name;
        picture = message.person->picture;
    }
    database.run("INSERT INTO messages"
                 " (id, ticket_id, author, content, is_read, at, person_name, "
                 "person_picture)"
                 " VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
                 newId(), entry.ticketId, nameOf(message.author), message.content, message.isRead,
                 message.at, name, picture);
    const std::int64_t seq = database.lastInsertId();
    database.run("UPDATE tickets SET last = ? WHERE id = ?", seq, entry.ticketId);
    insertAttachments(seq, *entry.message, database);
    const auto &seconds = entry.conversation->secondsUntilReply;
    if (seconds && entry.message == &entry.conversation->messages.back()) {
        database.run("INSERT INTO replies (kind, message_seq, due) VALUES ('message', ?, ?)", seq,
                     now + static_cast<Instant>(*seconds * 1000));
    }
}

/// Returns the messages of all tickets, oldest first: rows must be inserted in this order, because
/// it determines the order of the tickets.
std::vector<Entry> insertTickets(const Seed &seed, Database &database)
{
    std::vector<Entry> entries;
    for (const SeededConversation &conversation : seed.conversations) {
        const std::string id = newId();
        database.run("INSERT INTO tickets (id, customer_id, state, assignee, "
                     "channel, device)"
                     " VALUES (?, ?, ?, ?, 'app', '{}')",
                     id, seed.customer, nameOf(conversation.state),
                     nameOf(assigneeOf(conversation)));
        for (const SeededMessage &message : conversation.messages)
            entries.push_back({&message, &conversation, id});
    }
    std::ranges::stable_sort(entries, std::ranges::less(),
                             [](const Entry &entry) { return entry.message->message.at; });
    return entries;
}

} // namespace

void loadSeed(const std::string &path, Database &database)
{
    const Seed seed = readSeed(path);
    const Instant instant = now();
    Transaction transaction(database);
    insertPictures(seed, database);
    database.run("INSERT INTO customers (id, device_token) VALUES (?1, nullif(?2, ''))"
                 " ON CONFLICT (id) DO NOTHING",
                 seed.customer, seed.deviceToken);
    const bool isNew =
        !database.query("SELECT 1 FROM tickets WHERE customer_id = ?", seed.customer).step();
    if (isNew) {
        for (const Entry &entry : insertTickets(seed, database))
            insertMessage(entry, instant, database);
    }
    transaction.commit();
}

} // namespace tolvane::backend
