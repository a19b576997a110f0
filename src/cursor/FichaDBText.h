#pragma once
// The statements of the record cursor, built from its table, filter and order. Moves read one
// record each; every text is kept exactly as the server is sent it.

#include <QString>
#include <cstdint>
#include <optional>

namespace zlx::FichaDBText {

// " WHERE " + filter, or nothing; " AND " + filter, or nothing.
QString WhereFilter(const QString& filter);
QString AndFilter(const QString& filter);

// The first record in the order (the cursor's opening query; MoveFirst by identity).
QString FirstInOrder(const QString& table, const QString& filter, const QString& order,
                     bool descending = false);
// The lowest (highest) order value.
QString BoundaryValue(const QString& table, const QString& filter, const QString& order,
                      bool descending);
// One record with the order expression beside its columns; no ORDER BY (an empty table still
// gives every column).
QString AnyWithOrderValue(const QString& table, const QString& filter, const QString& order);
// The lowest (highest) identity among the records holding the order value, with the value.
QString FirstOfValueWithOrderValue(const QString& table, const QString& filter,
                                   const QString& order, const QString& literal, bool descending);
// The next (previous) record when the order is the identity.
QString NextByIdentity(const QString& table, const QString& filter, const QString& current,
                       bool descending);
// The current record's value of an order expression.
QString OrderValueOf(const QString& table, const QString& order, std::int32_t id);
// The same order value, a higher (lower) identity.
QString SameValueNext(const QString& table, const QString& filter, const QString& order,
                      const QString& literal, std::int32_t id, bool descending);
// The next (previous) order value.
QString NextValue(const QString& table, const QString& filter, const QString& order,
                  const QString& literal, bool descending);
// The lowest (highest) identity among the records holding the order value.
QString FirstOfValue(const QString& table, const QString& filter, const QString& order,
                     const QString& literal, bool descending);

QString Seek(const QString& table, std::int32_t id);
QString Find(const QString& table, const QString& expression, const QString& filter,
             const QString& order);
QString Refresh(const QString& table, std::int32_t id);
QString InFilter(const QString& table, std::int32_t id, const QString& filter);

// "INSERT INTO t(a,b) VALUES (1,2)" from lists that end with ","; DEFAULT VALUES when either
// is empty.
QString Insert(const QString& table, const QString& names, const QString& values);
QString WithIdentity(const QString& insert);
QString DeleteZeroIdentity(const QString& table);
QString Delete(const QString& table, std::int32_t id);
QString SetStatus(const QString& table, std::int32_t status, std::int32_t id);
// The duplicate count; `excludedId`, when given, leaves that record out.
QString Repeated(const QString& table, const QString& where,
                 std::optional<std::int32_t> excludedId);
QString MaxID(const QString& table);

// The identity reseed of a table: the statement, and the database to run it in (empty: the
// current one). An empty statement means the name cannot be reseeded (four parts).
struct Reseed {
    QString statement;
    QString database;
};
Reseed IdentityReseed(const QString& table, std::int32_t seed);

} // namespace zlx::FichaDBText
