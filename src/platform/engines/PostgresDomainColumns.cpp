#include "platform/engines/PostgresDomainColumns.h"

#include <QStringList>
#include <algorithm>
#include <cstdlib>
#include <libpq-fe.h>

namespace zlx::ado {
namespace {

constexpr Oid kSmallint = 21;
constexpr Oid kBpchar = 1042;

// The tables of `result`'s columns that may be of a domain: smallint, and bpchar without
// length.
std::vector<unsigned> DomainTables(const PGresult* result) {
    std::vector<unsigned> tables;
    for (int i = 0; i < PQnfields(result); ++i) {
        const Oid type = PQftype(result, i);
        if ((type == kSmallint || (type == kBpchar && PQfmod(result, i) < 0)) &&
            PQftable(result, i) != InvalidOid)
            tables.push_back(PQftable(result, i));
    }
    return tables;
}

bool HasRows(const PGresult* result) {
    const ExecStatusType status = PQresultStatus(result);
    return status == PGRES_SINGLE_TUPLE || status == PGRES_TUPLES_OK;
}

} // namespace

bool PostgresDomainColumns::NeedsLookUp(const PGresult* result) const {
    if (m_boolean.isEmpty() || !HasRows(result)) return false;
    const auto tables = DomainTables(result);
    return std::any_of(tables.begin(), tables.end(),
                       [this](unsigned table) { return !m_tables.contains(table); });
}

void PostgresDomainColumns::LookUp(PGconn* connection,
                                   const std::vector<const PGresult*>& results) {
    QStringList unknown;
    for (const PGresult* result : results) {
        if (!HasRows(result)) continue;
        for (unsigned table : DomainTables(result))
            if (!m_tables.contains(table)) unknown << QString::number(table);
    }
    if (unknown.isEmpty()) return;
    unknown.removeDuplicates();
    const QByteArray sql = QStringLiteral("SELECT a.attrelid, a.attnum, t.typname FROM "
                                          "pg_attribute a JOIN pg_type t ON t.oid = a.atttypid "
                                          "WHERE t.typtype = 'd' AND a.attrelid IN (%1)")
                               .arg(unknown.join(u','))
                               .toUtf8();
    PGresult* found = PQexec(connection, sql.constData());
    // A look-up that fails (in a transaction a failure has aborted) leaves the tables unknown:
    // their columns read as their base types this once.
    if (PQresultStatus(found) == PGRES_TUPLES_OK) {
        for (const QString& table : unknown)
            m_tables[table.toUInt()];
        for (int row = 0; row < PQntuples(found); ++row)
            m_tables[static_cast<unsigned>(std::strtoul(PQgetvalue(found, row, 0), nullptr, 10))]
                    [std::atoi(PQgetvalue(found, row, 1))] = QByteArray(PQgetvalue(found, row, 2));
    }
    PQclear(found);
}

const QByteArray* PostgresDomainColumns::DomainOf(unsigned table, int column) const {
    const auto found = m_tables.find(table);
    if (found == m_tables.end()) return nullptr;
    const auto domain = found->second.find(column);
    return domain == found->second.end() ? nullptr : &domain->second;
}

bool PostgresDomainColumns::IsBoolean(unsigned table, int column) const {
    const QByteArray* domain = DomainOf(table, column);
    return domain && *domain == m_boolean;
}

int PostgresDomainColumns::TextLength(unsigned table, int column) const {
    const QByteArray* domain = DomainOf(table, column);
    if (!domain) return 0;
    const qsizetype mark = domain->lastIndexOf('_');
    return mark < 0 ? 0 : std::atoi(domain->constData() + mark + 1);
}

} // namespace zlx::ado
