#pragma once
// The statements of one SQLite connection prepared once and run again with other values bound
// to their parameters (the record cursor's moves and repeated lookups differ only in their
// literals). At most a fixed number are kept; the one used least recently goes first. SQLite
// prepares a kept statement again by itself when a definition it reads changes.

#include "platform/engines/Driver.h"

#include <QHash>
#include <QString>
#include <list>

struct sqlite3_stmt;

namespace zlx::ado {

class SqliteStatementCache {
public:
    struct Entry {
        sqlite3_stmt* statement = nullptr; // nullptr: the text cannot run with parameters
        bool reportsChanges = false;       // an INSERT, UPDATE or DELETE: its count is read
        // The columns as described after SQLite's `described`-th preparation of the statement
        // (-1: not described, or a column's kind waits for the first row's value).
        std::vector<ColumnInfo> columns;
        int described = -1;
    };

    explicit SqliteStatementCache(std::size_t capacity) : m_capacity(capacity) {}
    ~SqliteStatementCache() { Clear(); }
    SqliteStatementCache(const SqliteStatementCache&) = delete;
    SqliteStatementCache& operator=(const SqliteStatementCache&) = delete;

    // The entry kept for `sql`, now the most recently used; nullptr when none is kept.
    Entry* Find(const QString& sql);
    // Keeps `statement` (owned from now on; nullptr to remember that `sql` cannot be kept),
    // finalising the least recently used statement when full.
    Entry& Keep(const QString& sql, sqlite3_stmt* statement);
    // Finalises every statement: before the connection closes.
    void Clear();
    std::size_t Size() const { return m_order.size(); }

private:
    using Order = std::list<std::pair<QString, Entry>>;
    static void Finalize(Entry& entry);

    std::size_t m_capacity;
    Order m_order; // most recently used first
    QHash<QString, Order::iterator> m_index;
};

} // namespace zlx::ado
