#pragma once
// The columns of one PostgreSQL domain over smallint that read back as Booleans (the T-SQL
// layer's BIT). libpq's row description names a domain's base type only, but it names each
// column's table and number: the columns of that domain are looked up once per table and kept
// until the connection alters a table.

#include <QByteArray>
#include <unordered_map>
#include <vector>

struct pg_conn;
struct pg_result;

namespace zlx::ado {

class PostgresBooleanColumns {
public:
    // The domain whose columns read as Booleans; none until it is set.
    void SetDomain(const QByteArray& domain) { m_domain = domain; }
    // Whether the rows of `result`, the first result of a rowset, must wait for a look-up: a
    // smallint column comes from a table not looked up yet.
    bool NeedsLookUp(const pg_result* result) const;
    // Looks up the tables of those columns, on a connection with no statement running.
    void LookUp(pg_conn* connection, const std::vector<const pg_result*>& results);
    bool IsBoolean(unsigned table, int column) const;
    // A table changed: every table is looked up again.
    void Forget() { m_tables.clear(); }

private:
    QByteArray m_domain;
    std::unordered_map<unsigned, std::vector<int>> m_tables; // table -> its domain's columns
};

} // namespace zlx::ado
