#include "platform/tsql/TableColumns.h"

#include <QStringList>

namespace zlx::tsql {

ColumnKind KindOfTsqlType(const QString& type) {
    static const QStringList integers = {QStringLiteral("INT"), QStringLiteral("INTEGER"),
                                         QStringLiteral("SMALLINT"), QStringLiteral("TINYINT"),
                                         QStringLiteral("BIGINT")};
    const QString base = type.section(u'(', 0, 0).trimmed().toUpper();
    if (integers.contains(base)) return ColumnKind::Integer;
    if (base == u"BIT") return ColumnKind::Bit;
    if (base == u"FLOAT" || base == u"REAL") return ColumnKind::Float;
    if (base == u"MONEY" || base == u"SMALLMONEY") return ColumnKind::Money;
    if (base == u"DECIMAL" || base == u"DEC" || base == u"NUMERIC") return ColumnKind::Decimal;
    if (base == u"DATETIME" || base == u"SMALLDATETIME" || base == u"DATE" || base == u"TIME" ||
        base == u"DATETIME2")
        return ColumnKind::Date;
    if (base.contains(u"CHAR") || base.endsWith(u"TEXT")) return ColumnKind::Text;
    return ColumnKind::Other;
}

TableColumn ColumnOfType(const QString& name, const QString& type, bool identity) {
    return TableColumn{name, type, KindOfTsqlType(type), identity};
}

const TableColumn* FindColumn(const TableColumns& columns, const QString& name) {
    for (const TableColumn& column : columns)
        if (column.name.compare(name, Qt::CaseInsensitive) == 0) return &column;
    return nullptr;
}

} // namespace zlx::tsql
