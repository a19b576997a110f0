#include "platform/engines/SqliteArithmetic.h"

#include <sqlite3.h>

namespace zlx::ado::SqliteArithmetic {
namespace {

void Divisor(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_value* value = values[0];
    const int type = sqlite3_value_numeric_type(value);
    const bool zero = (type == SQLITE_INTEGER && sqlite3_value_int64(value) == 0) ||
                      (type == SQLITE_FLOAT && sqlite3_value_double(value) == 0.0);
    if (zero)
        sqlite3_result_error(context, "Divide by zero error encountered.", -1);
    else
        sqlite3_result_value(context, value);
}

} // namespace

void Install(sqlite3* db) {
    sqlite3_create_function(db, "zlx_divisor", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                            &Divisor, nullptr, nullptr);
}

} // namespace zlx::ado::SqliteArithmetic
