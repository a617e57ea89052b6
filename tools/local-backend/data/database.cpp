// SPDX-License-Identifier: MIT
#include "data/database.h"

namespace tolvane::backend {

namespace {

// SQLite copies text, because a temporary may be destroyed before the statement runs.
const sqlite3_destructor_type copied = SQLITE_TRANSIENT;
const sqlite3_destructor_type borrowed = SQLITE_STATIC;

void check(sqlite3 *connection, int code)
{
    if (code != SQLITE_OK)
        throw DatabaseError(sqlite3_errmsg(connection));
}

} // namespace

Statement::~Statement()
{
    // Errors are ignored: these calls repeat the error that step() has already thrown.
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

void Statement::bind(int index, std::string_view text)
{
    // SQLite would bind the null pointer of an empty view as NULL.
    check(connection(), sqlite3_bind_text64(m_statement, index, text.empty() ? "" : text.data(),
                                            text.size(), copied, SQLITE_UTF8));
}

void Statement::bind(int index, std::int64_t number)
{
    check(connection(), sqlite3_bind_int64(m_statement, index, number));
}

void Statement::bind(int index, Blob blob)
{
    check(connection(),
          sqlite3_bind_blob64(m_statement, index, blob.bytes.empty() ? "" : blob.bytes.data(),
                              blob.bytes.size(), borrowed));
}

void Statement::bind(int index, std::nullopt_t)
{
    check(connection(), sqlite3_bind_null(m_statement, index));
}

bool Statement::step()
{
    const int code = sqlite3_step(m_statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        check(connection(), code);
    return code == SQLITE_ROW;
}

std::string Statement::text(int column) const
{
    const auto *bytes = static_cast<const char *>(sqlite3_column_blob(m_statement, column));
    const int size = sqlite3_column_bytes(m_statement, column);
    return bytes ? std::string(bytes, static_cast<std::size_t>(size)) : std::string();
}

std::optional<std::string> Statement::optionalText(int column) const
{
    const bool isNull = sqlite3_column_type(m_statement, column) == SQLITE_NULL;
    return isNull ? std::nullopt : std::optional(text(column));
}

Database::Database(const std::string &path)
{
    sqlite3 *connection = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    const int code = sqlite3_open_v2(path.c_str(), &connection, flags, nullptr);
    m_connection.reset(connection);
    check(connection, code);
    sqlite3_extended_result_codes(connection, 1);
    sqlite3_busy_timeout(connection, 5000);
}

void Database::executeScript(const char *sql)
{
    check(m_connection.get(), sqlite3_exec(m_connection.get(), sql, nullptr, nullptr, nullptr));
}

sqlite3_stmt *Database::prepare(const char *sql)
{
    auto &statement = m_statements[sql];
    if (!statement) {
        sqlite3_stmt *prepared = nullptr;
        check(m_connection.get(),
              sqlite3_prepare_v3(m_connection.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &prepared,
                                 nullptr));
        statement.reset(prepared);
    }
    return statement.get();
}

Transaction::Transaction(Database &database)
    : m_database(&database)
{
    // Takes the write lock at once: otherwise two processes could both read, and one then fail to
    // write.
    m_database->executeScript("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    // Errors are ignored: after some errors SQLite has already rolled back.
    if (m_database)
        sqlite3_exec(m_database->connection(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit()
{
    m_database->executeScript("COMMIT");
    m_database = nullptr;
}

} // namespace tolvane::backend
