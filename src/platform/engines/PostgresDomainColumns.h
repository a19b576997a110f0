#pragma once
// The columns of the T-SQL layer's PostgreSQL domains, which a row description cannot tell:
// libpq names a domain's base type only, but it names each column's table and number. The
// columns of one domain over smallint read back as Booleans (BIT), and those of a domain over
// bpchar named <name>_<n> as variable texts of n characters (VARCHAR(n)). The domain columns
// of a table are looked up once and kept until the connection alters a table.

#include <QByteArray>
#include <unordered_map>
#include <vector>

struct pg_conn;
struct pg_result;

namespace zlx::ado {

class PostgresDomainColumns {
public:
    // The domain whose columns read as Booleans; nothing is looked up until it is set.
    void SetBooleanDomain(const QByteArray& domain) { m_boolean = domain; }
    // Whether the rows of `result`, the first result of a rowset, must wait for a look-up: a
    // smallint or bpchar column comes from a table not looked up yet.
    bool NeedsLookUp(const pg_result* result) const;
    // Looks up the tables of those columns, on a connection with no statement running.
    void LookUp(pg_conn* connection, const std::vector<const pg_result*>& results);
    bool IsBoolean(unsigned table, int column) const;
    // The length of a variable text domain's column; 0 for another column.
    int TextLength(unsigned table, int column) const;
    // A table changed: every table is looked up again.
    void Forget() { m_tables.clear(); }

private:
    const QByteArray* DomainOf(unsigned table, int column) const;

    QByteArray m_boolean;
    // table -> its domain columns' numbers and domains
    std::unordered_map<unsigned, std::unordered_map<int, QByteArray>> m_tables;
};

} // namespace zlx::ado
