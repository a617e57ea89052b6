// SPDX-License-Identifier: MIT
#include "data/schema.h"

#include "base/errors.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <array>

namespace tolvane::backend {

namespace {

constexpr std::int64_t applicationId = 0x544F4C56;

// A ticket's `last` is the `seq` of its newest message, by which lists of tickets are ordered.
constexpr const char *initialSchema = R"(
CREATE TABLE customers (
    id TEXT PRIMARY KEY,
    email TEXT,
    original_id TEXT,
    device_token TEXT
) WITHOUT ROWID;
CREATE TABLE tickets (
    id TEXT PRIMARY KEY,
    customer_id TEXT NOT NULL REFERENCES customers (id),
    state TEXT NOT NULL,
    assignee TEXT NOT NULL,
    channel TEXT NOT NULL,
    device TEXT NOT NULL,
    last INTEGER NOT NULL DEFAULT 0
) WITHOUT ROWID;
CREATE INDEX tickets_by_customer ON tickets (customer_id, last);
CREATE TABLE messages (
    seq INTEGER PRIMARY KEY AUTOINCREMENT,
    id TEXT NOT NULL UNIQUE,
    ticket_id TEXT NOT NULL REFERENCES tickets (id),
    author TEXT NOT NULL,
    content TEXT NOT NULL,
    is_read INTEGER NOT NULL,
    at INTEGER NOT NULL
);
CREATE INDEX messages_by_ticket ON messages (ticket_id, seq);
CREATE INDEX messages_unread ON messages (ticket_id) WHERE is_read = 0;
CREATE TABLE files (
    hash TEXT PRIMARY KEY,
    bytes BLOB NOT NULL
);
CREATE TABLE attachments (
    message_seq INTEGER NOT NULL REFERENCES messages (seq),
    place INTEGER NOT NULL,
    hash TEXT NOT NULL REFERENCES files (hash),
    name TEXT NOT NULL,
    mime_type TEXT NOT NULL,
    PRIMARY KEY (message_seq, place)
) WITHOUT ROWID;
CREATE INDEX attachments_by_address ON attachments (hash, name);
CREATE TABLE replies (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    kind TEXT NOT NULL,
    message_seq INTEGER NOT NULL REFERENCES messages (seq),
    due INTEGER NOT NULL
);
CREATE INDEX replies_by_due ON replies (due, id);
PRAGMA application_id = 0x544F4C56;
PRAGMA user_version = 1;
)";

// For the agent page: the name and picture of a human agent, NULL for the scripted agents, and the
// switch for automatic replies.
constexpr const char *agentPageMigration = R"(
ALTER TABLE tickets ADD COLUMN automatic INTEGER NOT NULL DEFAULT 1;
ALTER TABLE messages ADD COLUMN person_name TEXT;
ALTER TABLE messages ADD COLUMN person_picture TEXT;
CREATE TABLE pictures (
    hash TEXT NOT NULL REFERENCES files (hash),
    name TEXT NOT NULL,
    mime_type TEXT NOT NULL,
    PRIMARY KEY (hash, name)
) WITHOUT ROWID;
CREATE TABLE settings (
    name TEXT PRIMARY KEY,
    value TEXT NOT NULL
) WITHOUT ROWID;
PRAGMA user_version = 2;
)";

// What agents write is a reply, whether they are people or scripted.
constexpr const char *replyNamesMigration = R"(
UPDATE replies SET kind = 'message' WHERE kind = 'answer';
UPDATE settings SET name = 'repliesAutomatically', value = iif(value = 'no', 'false', 'true')
    WHERE name = 'answersAutomatically';
PRAGMA user_version = 3;
)";

// The script at index N migrates a database from version N to version N + 1.
constexpr std::array migrations = {initialSchema, agentPageMigration, replyNamesMigration};
constexpr auto version = static_cast<std::int64_t>(migrations.size());

std::string remedy(const std::string &path)
{
    return "; move '" + path + "' away or name another file with --db";
}

// Messages are private: the file is created before SQLite opens it, with permissions for its owner
// only, which SQLite's journal files inherit. The permissions of an existing folder stay as they
// are.
void createFile(const QString &path)
{
    constexpr auto owner = QFile::ReadOwner | QFile::WriteOwner;
    const QString folder = QFileInfo(path).path();
    if (!QFileInfo::exists(folder) &&
        !(QDir().mkpath(folder) && QFile::setPermissions(folder, owner | QFile::ExeOwner)))
        throw StartError("the folder '" + folder.toStdString() +
                         "' cannot be created; name a file elsewhere with --db");
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite, owner))
        throw StartError("the database '" + path.toStdString() + "' cannot be written (" +
                         file.errorString().toStdString() + "); name a file elsewhere with --db");
}

std::int64_t number(Database &database, const char *pragma)
{
    return database.execAndGet(pragma).getInt64();
}

bool isEmpty(Database &database)
{
    return number(database, "SELECT count(*) FROM sqlite_master") == 0 &&
           number(database, "PRAGMA application_id") == 0 &&
           number(database, "PRAGMA user_version") == 0;
}

void migrate(Database &database)
{
    // The version is read inside the transaction, because another backend may be migrating the same
    // file.
    Transaction transaction(database);
    for (auto at = number(database, "PRAGMA user_version"); at < version; ++at)
        database.exec(migrations.at(static_cast<std::size_t>(at)));
    transaction.commit();
}

void rejectForeignDatabase(Database &database, const std::string &path)
{
    if (!isEmpty(database) && number(database, "PRAGMA application_id") != applicationId)
        throw StartError("'" + path + "' is another program's database" + remedy(path));
    if (number(database, "PRAGMA user_version") > version)
        throw StartError("'" + path + "' was created by a newer tolvane-backend" + remedy(path));
}

} // namespace

Database openDatabase(const std::string &path)
{
    if (path != inMemory)
        createFile(QString::fromStdString(path));
    try {
        constexpr int busyTimeout = 5000;
        Database database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, busyTimeout);
        rejectForeignDatabase(database, path);
        if (database.execAndGet("PRAGMA quick_check(1)").getString() != "ok")
            throw SQLite::Exception("it is damaged");
        if (number(database, "PRAGMA user_version") < version)
            migrate(database);
        database.exec("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"
                      "PRAGMA foreign_keys = ON");
        return database;
    } catch (const SQLite::Exception &error) {
        throw StartError("'" + path + "' cannot be used as the database (" + error.what() + ")" +
                         remedy(path));
    }
}

} // namespace tolvane::backend
