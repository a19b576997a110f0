#include "cursor/FichaDBText.h"

namespace zlx::FichaDBText {

namespace {

QString Desc(bool descending) {
    return descending ? QStringLiteral(" DESC") : QString();
}
QString Id(std::int32_t id) {
    return QString::number(id);
}

} // namespace

QString WhereFilter(const QString& filter) {
    return filter.isEmpty() ? QString() : QStringLiteral(" WHERE ") + filter;
}

QString AndFilter(const QString& filter) {
    return filter.isEmpty() ? QString() : QStringLiteral(" AND ") + filter;
}

QString FirstInOrder(const QString& table, const QString& filter, const QString& order,
                     bool descending) {
    return QStringLiteral("SELECT TOP 1 * FROM ") + table + WhereFilter(filter) +
           QStringLiteral(" ORDER BY ") + order + Desc(descending);
}

QString BoundaryValue(const QString& table, const QString& filter, const QString& order,
                      bool descending) {
    return QStringLiteral("SELECT TOP 1 ") + order + QStringLiteral(" FROM ") + table +
           WhereFilter(filter) + QStringLiteral(" ORDER BY ") + order + Desc(descending);
}

QString AnyWithOrderValue(const QString& table, const QString& filter, const QString& order) {
    return QStringLiteral("SELECT TOP 1 *, ") + order +
           QStringLiteral(" AS LastExpressionForMoveWithOrder") + QStringLiteral(" FROM ") + table +
           WhereFilter(filter);
}

QString FirstOfValueWithOrderValue(const QString& table, const QString& filter,
                                   const QString& order, const QString& literal, bool descending) {
    return QStringLiteral("SELECT TOP 1 *, ") + order +
           QStringLiteral(" AS LastExpressionForMoveWithOrder") + QStringLiteral(" FROM ") + table +
           QStringLiteral(" WHERE ") + order + QStringLiteral(" = ") + literal + AndFilter(filter) +
           QStringLiteral(" ORDER BY ZolmarID") + Desc(descending);
}

QString NextByIdentity(const QString& table, const QString& filter, const QString& current,
                       bool descending) {
    return QStringLiteral("SELECT TOP 1 * FROM ") + table +
           (descending ? QStringLiteral(" WHERE zolmarID < ")
                       : QStringLiteral(" WHERE zolmarID > ")) +
           current + AndFilter(filter) + QStringLiteral(" ORDER BY zolmarID") + Desc(descending);
}

QString OrderValueOf(const QString& table, const QString& order, std::int32_t id) {
    return QStringLiteral("SELECT TOP 1 ") + order + QStringLiteral(" FROM ") + table +
           QStringLiteral(" WHERE ZolmarID=") + Id(id);
}

QString SameValueNext(const QString& table, const QString& filter, const QString& order,
                      const QString& literal, std::int32_t id, bool descending) {
    return QStringLiteral("SELECT TOP 1 * FROM ") + table + QStringLiteral(" WHERE ") + order +
           QStringLiteral(" = ") + literal +
           (descending ? QStringLiteral(" AND  zolmarID < ")
                       : QStringLiteral(" AND  zolmarID > ")) +
           Id(id) + AndFilter(filter) + QStringLiteral(" ORDER BY zolmarID") + Desc(descending);
}

QString NextValue(const QString& table, const QString& filter, const QString& order,
                  const QString& literal, bool descending) {
    return QStringLiteral("SELECT TOP 1 ") + order + QStringLiteral(" FROM ") + table +
           QStringLiteral(" WHERE ") + order +
           (descending ? QStringLiteral(" < ") : QStringLiteral(" > ")) + literal +
           AndFilter(filter) + QStringLiteral(" ORDER BY ") + order + Desc(descending);
}

QString FirstOfValue(const QString& table, const QString& filter, const QString& order,
                     const QString& literal, bool descending) {
    return QStringLiteral("SELECT TOP 1 * FROM ") + table + QStringLiteral(" WHERE ") + order +
           QStringLiteral(" = ") + literal + AndFilter(filter) +
           QStringLiteral(" ORDER BY ZolmarID") + Desc(descending);
}

QString Seek(const QString& table, std::int32_t id) {
    return QStringLiteral("SELECT * FROM ") + table + QStringLiteral(" WHERE zolmarID = ") + Id(id);
}

QString Find(const QString& table, const QString& expression, const QString& filter,
             const QString& order) {
    QString text = QStringLiteral("SELECT TOP 1 * FROM ") + table + QStringLiteral(" WHERE (") +
                   expression + u')';
    if (!filter.isEmpty()) text += QStringLiteral(" AND (") + filter + u')';
    if (!order.isEmpty()) text += QStringLiteral(" ORDER BY ") + order;
    return text;
}

QString Refresh(const QString& table, std::int32_t id) {
    return QStringLiteral("SELECT TOP 1 * FROM ") + table + QStringLiteral(" WHERE zolmarID = ") +
           Id(id);
}

QString InFilter(const QString& table, std::int32_t id, const QString& filter) {
    return Refresh(table, id) + AndFilter(filter);
}

QString Insert(const QString& table, const QString& names, const QString& values) {
    if (names.isEmpty() || values.isEmpty())
        return QStringLiteral("INSERT INTO ") + table + QStringLiteral(" DEFAULT VALUES");
    return QStringLiteral("INSERT INTO ") + table + u'(' + names.chopped(1) +
           QStringLiteral(") VALUES (") + values.chopped(1) + u')';
}

QString WithIdentity(const QString& insert) {
    return QStringLiteral("SET NOCOUNT ON ") + insert + QStringLiteral(" SELECT @@Identity ") +
           QStringLiteral(" SET NOCOUNT OFF");
}

QString DeleteZeroIdentity(const QString& table) {
    return QStringLiteral("DELETE FROM ") + table + QStringLiteral(" WHERE zolmarID=0");
}

QString Delete(const QString& table, std::int32_t id) {
    return QStringLiteral("DELETE FROM ") + table + QStringLiteral(" WHERE zolmarID = ") + Id(id);
}

QString SetStatus(const QString& table, std::int32_t status, std::int32_t id) {
    return QStringLiteral("UPDATE ") + table + QStringLiteral(" SET Activo=") + Id(status) +
           QStringLiteral(" WHERE zolmarID = ") + Id(id);
}

QString Repeated(const QString& table, const QString& where,
                 std::optional<std::int32_t> excludedId) {
    QString text =
        QStringLiteral("SELECT count(*) FROM ") + table + QStringLiteral(" WHERE ") + where;
    if (excludedId) text += QStringLiteral(" AND ZolmarID<>") + Id(*excludedId);
    return text;
}

QString MaxID(const QString& table) {
    return QStringLiteral("SELECT max(zolmarID) AS MaxID FROM ") + table;
}

Reseed IdentityReseed(const QString& table, std::int32_t seed) {
    const QString tail =
        seed >= 0 ? QStringLiteral(", RESEED, ") + Id(seed) + u')' : QStringLiteral(")");
    const qsizetype dot = table.lastIndexOf(u'.');
    if (dot < 0) return {QStringLiteral("DBCC CHECKIDENT (") + table + tail, {}};
    // "datos..t" and "datos.dbo.t" both reduce to the database name.
    QString database = table.left(dot);
    database.chop(database.endsWith(u'.') ? 1 : 4);
    if (database.contains(u'.')) return {};
    return {QStringLiteral("DBCC CHECKIDENT (") + table.mid(dot + 1) + tail, database};
}

} // namespace zlx::FichaDBText
