#include "platform/engines/SqliteStatementCache.h"

#include <sqlite3.h>

namespace zlx::ado {

SqliteStatementCache::Entry* SqliteStatementCache::Find(const QString& sql) {
    const auto found = m_index.constFind(sql);
    if (found == m_index.constEnd()) return nullptr;
    m_order.splice(m_order.begin(), m_order, *found);
    return &m_order.front().second;
}

SqliteStatementCache::Entry& SqliteStatementCache::Keep(const QString& sql,
                                                        sqlite3_stmt* statement) {
    if (m_order.size() >= m_capacity) {
        Finalize(m_order.back().second);
        m_index.remove(m_order.back().first);
        m_order.pop_back();
    }
    Entry entry;
    entry.statement = statement;
    m_order.emplace_front(sql, std::move(entry));
    m_index.insert(sql, m_order.begin());
    return m_order.front().second;
}

void SqliteStatementCache::Clear() {
    for (auto& [sql, entry] : m_order)
        Finalize(entry);
    m_order.clear();
    m_index.clear();
}

void SqliteStatementCache::Finalize(Entry& entry) {
    sqlite3_finalize(entry.statement);
    entry.statement = nullptr;
}

} // namespace zlx::ado
