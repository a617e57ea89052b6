// SPDX-License-Identifier: MIT
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <string>

namespace tolvane::backend {

using SQLite::Database;
using SQLite::Statement;

template <typename Value>
void bind(Statement &statement, int index, const Value &value)
{
    if constexpr (std::integral<Value>)
        statement.bind(index, static_cast<std::int64_t>(value));
    else if constexpr (!requires { value.has_value(); })
        statement.bind(index, std::string(value));
    else if (value)
        bind(statement, index, *value);
    else
        statement.bind(index);
}

/// Prepares a statement with its parameters.
template <typename... Values>
Statement query(Database &database, const char *sql, const Values &...values)
{
    Statement statement(database, sql);
    [[maybe_unused]] int index = 0;
    (bind(statement, ++index, values), ...);
    return statement;
}

/// Runs a statement that returns no rows. Returns the number of changed rows.
template <typename... Values>
int run(Database &database, const char *sql, const Values &...values)
{
    return query(database, sql, values...).exec();
}

/// Takes the write lock at once: otherwise two processes could both read, and one then fail to
/// write. Rolls back on destruction unless committed.
struct Transaction : SQLite::Transaction
{
    explicit Transaction(Database &database)
        : SQLite::Transaction(database, SQLite::TransactionBehavior::IMMEDIATE)
    {
    }
};

} // namespace tolvane::backend
