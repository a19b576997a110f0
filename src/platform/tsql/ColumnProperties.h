#pragma once
// COLUMNPROPERTY(OBJECT_ID('t'), 'c', 'property') of a table's column, answered from what the
// layer knows of the table's columns: AllowsNull, IsIdentity, IsComputed (no column is
// computed here), ColumnId, Precision and Scale; NULL for a table, column or property that is
// none, as SQL Server answers invalid input.

#include "platform/tsql/TableColumns.h"

#include <QString>

namespace zlx::tsql {

class ColumnProperties {
public:
    explicit ColumnProperties(const TableColumns& columns);

    // The property's value as an SQL literal ("1", "9", "NULL"); throws 0x80040E14 naming the
    // property of a type whose answer the layer does not know.
    QString Value(const QString& column, const QString& property) const;

private:
    QString Precision(const QString& type) const;
    QString Scale(const QString& type) const;

    const TableColumns& m_columns;
};

} // namespace zlx::tsql
