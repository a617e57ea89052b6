// SPDX-License-Identifier: MIT
#include "data/seed.h"

#include "base/text.h"
#include "data/rows.h"
#include "data/seedfile.h"

#include <algorithm>

namespace tolvane::backend {

namespace {

/// A message of a ticket that has just been inserted.
struct Entry
{
    Message message;
    const std::vector<Upload> *attachments;
    std::optional<double> secondsUntilReply;
};

Author assigneeOf(const SeededConversation &conversation)
{
    Author assignee = Author::Ai;
    for (const SeededMessage &seeded : conversation.messages) {
        if (seeded.message.author != Author::Customer)
            assignee = seeded.message.author;
    }
    return assignee;
}

void insertTicket(Database &database, const std::string &customer,
                  const SeededConversation &conversation, std::vector<Entry> &entries)
{
    const std::string id = newId();
    run(database,
        "INSERT INTO tickets (id, customer_id, state, assignee, channel, device)"
        " VALUES (?, ?, ?, ?, 'app', '{}')",
        id, customer, nameOf(conversation.state), nameOf(assigneeOf(conversation)));
    for (const SeededMessage &seeded : conversation.messages) {
        entries.push_back({seeded.message, &seeded.attachments, {}});
        entries.back().message.id = newId();
        entries.back().message.ticketId = id;
    }
    entries.back().secondsUntilReply = conversation.secondsUntilReply;
}

void insertConversations(Database &database, const Seed &seed)
{
    std::vector<Entry> entries;
    for (const SeededConversation &conversation : seed.conversations)
        insertTicket(database, seed.customer, conversation, entries);
    // The order of the rows determines the order of the tickets.
    std::ranges::stable_sort(entries, {}, [](const Entry &entry) { return entry.message.at; });
    for (Entry &entry : entries) {
        const std::int64_t seq = insertMessage(database, entry.message, *entry.attachments);
        if (entry.secondsUntilReply)
            enqueueReply(database, ReplyKind::Message, seq,
                         now() + static_cast<Instant>(*entry.secondsUntilReply * 1000));
    }
}

} // namespace

void loadSeed(const std::string &path, Database &database)
{
    const Seed seed = readSeed(path);
    Transaction transaction(database);
    for (const Upload &picture : seed.pictures)
        insertPicture(database, picture);
    run(database,
        "INSERT INTO customers (id, device_token) VALUES (?1, nullif(?2, ''))"
        " ON CONFLICT (id) DO NOTHING",
        seed.customer, seed.deviceToken);
    const bool isNew =
        !query(database, "SELECT 1 FROM tickets WHERE customer_id = ?", seed.customer)
             .executeStep();
    if (isNew)
        insertConversations(database, seed);
    transaction.commit();
}

} // namespace tolvane::backend
