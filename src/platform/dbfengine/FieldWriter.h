#pragma once
// Writes a value into a field of a record of any type the engine writes: the character,
// numeric, date and logical fields through the table, Visual FoxPro's binary fields, and
// memos, whose text goes into the memo file first.

#include "platform/dbfformat/DbfTable.h"

namespace zlx::dbfengine {

// `memoPath` is the memo file the table's records point into. False when the value does not
// convert or does not fit, or its memo cannot be stored.
bool WriteField(const DbfTable& table, const QString& memoPath, const DbfField& field, char* record,
                const Variant& value);

} // namespace zlx::dbfengine
