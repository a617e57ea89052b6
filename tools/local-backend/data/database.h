// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tolvane::backend {

class DatabaseError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A parameter that is not copied, because it may be large: the caller keeps the bytes until the
/// statement has run.
struct Blob
{
    std::string_view bytes;
};

/// A prepared statement, borrowed from the database's cache. Its destructor resets it for the next
/// use.
class Statement
{
public:
    template <typename... Values>
    explicit Statement(sqlite3_stmt *statement, const Values &...values)
        : m_statement(statement)
    {
        [[maybe_unused]] int index = 0;
        (bind(++index, values), ...);
    }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;
    ~Statement();

    /// Returns whether there is a row.
    bool step();
    std::string text(int column) const;
    /// Returns nullopt for NULL.
    std::optional<std::string> optionalText(int column) const;
    std::int64_t number(int column) const { return sqlite3_column_int64(m_statement, column); }

private:
    void bind(int index, std::string_view text);
    void bind(int index, std::int64_t number);
    void bind(int index, Blob blob);
    void bind(int index, std::nullopt_t);

    template <typename Value>
    void bind(int index, const std::optional<Value> &value)
    {
        value ? bind(index, *value) : bind(index, std::nullopt);
    }

    sqlite3 *connection() const { return sqlite3_db_handle(m_statement); }

    sqlite3_stmt *m_statement;
};

/// A connection to SQLite. Not thread-safe: the caller serialises all calls.
class Database
{
public:
    explicit Database(const std::string &path);

    /// `sql` must be a string literal: statements are cached by its address.
    template <typename... Values>
    Statement query(const char *sql, const Values &...values)
    {
        return Statement(prepare(sql), values...);
    }

    /// Runs a statement that returns no rows. Returns the number of changed rows.
    template <typename... Values>
    int run(const char *sql, const Values &...values)
    {
        query(sql, values...).step();
        return sqlite3_changes(m_connection.get());
    }

    /// Runs several statements without parameters.
    void executeScript(const char *sql);
    sqlite3 *connection() const { return m_connection.get(); }
    std::int64_t lastInsertId() const { return sqlite3_last_insert_rowid(m_connection.get()); }

private:
    struct Close
    {
        void operator()(sqlite3 *connection) const { sqlite3_close_v2(connection); }
    };
    struct Finalize
    {
        void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
    };

    sqlite3_stmt *prepare(const char *sql);

    std::unique_ptr<sqlite3, Close> m_connection;
    std::unordered_map<const char *, std::unique_ptr<sqlite3_stmt, Finalize>> m_statements;
};

/// Rolls back on destruction unless committed.
class Transaction
{
public:
    explicit Transaction(Database &database);
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    ~Transaction();

    void commit();

private:
    Database *m_database;
};

} // namespace tolvane::backend
