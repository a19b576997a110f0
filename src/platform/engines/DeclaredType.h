#pragma once
// Reads a column's declared SQL type ("NVARCHAR(40)", "NUMERIC(12,2)", "DATETIME") into
// ADO's type, size, precision and scale, as SQL Server's provider would report that type.

#include "platform/engines/Driver.h"

namespace zlx::ado {

// Fills type, definedSize, precision, numericScale and the fixed/long attribute bits.
// Returns false when the text names no type (an expression column): `column` is untouched.
bool ApplyDeclaredType(const QString& declared, ColumnInfo& column);

// ADO's description of a column whose type is known only from a value's kind.
void ApplyValueKind(DataTypeEnum type, ColumnInfo& column);

} // namespace zlx::ado
