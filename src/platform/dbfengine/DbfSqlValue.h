#pragma once
// Field values between a DBF record and SQLite: the SQL type each field is declared with,
// values handed to SQLite (text trimmed of its padding, dates as ISO text, logicals as 0 and
// 1) and values taken from SQLite for writing (ISO and yyyymmdd dates, numbers, logicals).

#include "platform/dbfformat/DbfLayout.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <vector>

struct sqlite3_context;
struct sqlite3_value;

namespace zlx::dbfengine {

class FolderTable;

QString DeclaredTypeOf(const DbfLayout& layout, const DbfField& field);
// The column names of the fields: lower case, as Visual FoxPro shows them.
std::vector<QString> ColumnNames(const DbfLayout& layout);
// Sets the field's value of the record as the function's result; `problem` says why when the
// value cannot be read (a missing memo).
void ResultOf(const FolderTable& table, const DbfField& field, const char* record,
              sqlite3_context* context, QString& problem);
// The value SQLite gives for a field, as the kind the field stores.
Variant VariantOf(sqlite3_value* value, const DbfField& field);

} // namespace zlx::dbfengine
