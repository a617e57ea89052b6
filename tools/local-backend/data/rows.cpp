// SPDX-License-Identifier: MIT
#include "data/rows.h"

#include "base/text.h"

namespace tolvane::backend {

namespace {

constexpr const char *introduction = "introduction";

struct File
{
    std::string hash;
    std::string name;
};

File insertFile(Database &database, const Upload &upload)
{
    const File file{sha256Hex(upload.bytes), safeFileName(upload.fileName)};
    Statement insert(database, "INSERT OR IGNORE INTO files (hash, bytes) VALUES (?, ?)");
    insert.bind(1, file.hash);
    insert.bindNoCopy(2, upload.bytes.data(), static_cast<int>(upload.bytes.size()));
    insert.exec();
    return file;
}

} // namespace

Message messageFromRow(const Statement &row, const std::string &customer,
                       const std::string &ticketId)
{
    Message message;
    message.id = row.getColumn(0).getString();
    message.ticketId = ticketId;
    message.author = authorNamed(row.getColumn(1).getString());
    if (message.author == Author::Customer)
        message.customerId = customer;
    message.content = row.getColumn(2).getString();
    message.isRead = row.getColumn(3).getInt() != 0;
    message.at = row.getColumn(4).getInt64();
    if (!row.isColumnNull(5))
        message.person = Person{row.getColumn(5).getString(), row.getColumn(6).getString()};
    return message;
}

void addAttachmentFromRow(const Statement &row, Message &message)
{
    if (!row.isColumnNull(7))
        message.attachments.push_back(
            filePath(row.getColumn(7).getString(), row.getColumn(8).getString()));
}

Message newMessage(const std::string &ticketId, Author author, const std::string &content)
{
    Message message;
    message.id = newId();
    message.ticketId = ticketId;
    message.author = author;
    message.content = content;
    message.isRead = author == Author::Customer;
    message.at = now();
    return message;
}

std::int64_t insertMessage(Database &database, Message &message, const std::vector<Upload> &uploads)
{
    const auto &person = message.person;
    run(database,
        "INSERT INTO messages"
        " (id, ticket_id, author, content, is_read, at, person_name, person_picture)"
        " VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
        message.id, message.ticketId, nameOf(message.author), message.content, message.isRead,
        message.at, person ? std::optional(person->name) : std::nullopt,
        person ? std::optional(person->picture) : std::nullopt);
    const std::int64_t seq = database.getLastInsertRowid();
    run(database, "UPDATE tickets SET last = ? WHERE id = ?", seq, message.ticketId);
    for (const Upload &upload : uploads) {
        const File file = insertFile(database, upload);
        run(database,
            "INSERT INTO attachments (message_seq, place, hash, name, mime_type)"
            " VALUES (?, ?, ?, ?, ?)",
            seq, message.attachments.size(), file.hash, file.name, upload.mimeType);
        message.attachments.push_back(filePath(file.hash, file.name));
    }
    return seq;
}

std::string insertPicture(Database &database, const Upload &picture)
{
    const File file = insertFile(database, picture);
    run(database, "INSERT OR IGNORE INTO pictures (hash, name, mime_type) VALUES (?, ?, ?)",
        file.hash, file.name, picture.mimeType);
    return filePath(file.hash, file.name);
}

ReplyKind replyKindNamed(std::string_view name)
{
    return name == introduction ? ReplyKind::Introduction : ReplyKind::Message;
}

void enqueueReply(Database &database, ReplyKind kind, std::int64_t messageSeq, Instant due)
{
    run(database, "INSERT INTO replies (kind, message_seq, due) VALUES (?, ?, ?)",
        kind == ReplyKind::Introduction ? introduction : "message", messageSeq, due);
}

} // namespace tolvane::backend
