#include "platform/engines/PostgresBooleanColumns.h"

#include <QStringList>
#include <algorithm>
#include <cstdlib>
#include <libpq-fe.h>

namespace zlx::ado {
namespace {

constexpr Oid kSmallint = 21;

// The tables of `result`'s smallint columns.
std::vector<unsigned> SmallintTables(const PGresult* result) {
    std::vector<unsigned> tables;
    for (int i = 0; i < PQnfields(result); ++i)
        if (PQftype(result, i) == kSmallint && PQftable(result, i) != InvalidOid)
            tables.push_back(PQftable(result, i));
    return tables;
}

bool HasRows(const PGresult* result) {
    const ExecStatusType status = PQresultStatus(result);
    return status == PGRES_SINGLE_TUPLE || status == PGRES_TUPLES_OK;
}

} // namespace

bool PostgresBooleanColumns::NeedsLookUp(const PGresult* result) const {
    if (m_domain.isEmpty() || !HasRows(result)) return false;
    const auto tables = SmallintTables(result);
    return std::any_of(tables.begin(), tables.end(),
                       [this](unsigned table) { return !m_tables.contains(table); });
}

void PostgresBooleanColumns::LookUp(PGconn* connection,
                                    const std::vector<const PGresult*>& results) {
    QStringList unknown;
    for (const PGresult* result : results) {
        if (!HasRows(result)) continue;
        for (unsigned table : SmallintTables(result))
            if (!m_tables.contains(table)) unknown << QString::number(table);
    }
    if (unknown.isEmpty()) return;
    unknown.removeDuplicates();
    const QByteArray sql = QStringLiteral("SELECT a.attrelid, a.attnum FROM pg_attribute a JOIN "
                                          "pg_type t ON t.oid = a.atttypid WHERE t.typname = $1 "
                                          "AND a.attrelid IN (%1)")
                               .arg(unknown.join(u','))
                               .toUtf8();
    const char* values[] = {m_domain.constData()};
    PGresult* found =
        PQexecParams(connection, sql.constData(), 1, nullptr, values, nullptr, nullptr, 0);
    // A look-up that fails (in a transaction a failure has aborted) leaves the tables unknown:
    // their columns read as numbers this once.
    if (PQresultStatus(found) == PGRES_TUPLES_OK) {
        for (const QString& table : unknown)
            m_tables[table.toUInt()];
        for (int row = 0; row < PQntuples(found); ++row)
            m_tables[static_cast<unsigned>(std::strtoul(PQgetvalue(found, row, 0), nullptr, 10))]
                .push_back(std::atoi(PQgetvalue(found, row, 1)));
    }
    PQclear(found);
}

bool PostgresBooleanColumns::IsBoolean(unsigned table, int column) const {
    const auto found = m_tables.find(table);
    return found != m_tables.end() &&
           std::find(found->second.begin(), found->second.end(), column) != found->second.end();
}

} // namespace zlx::ado
