#include "platform/engines/SqliteSingleValue.h"

#include <sqlite3.h>

namespace zlx::ado::SqliteSingleValue {
namespace {

struct Found {
    sqlite3_value* value; // a copy of the first row's value
    bool any;
};

void Step(sqlite3_context* context, int, sqlite3_value** values) {
    auto* found = static_cast<Found*>(sqlite3_aggregate_context(context, sizeof(Found)));
    if (!found) return sqlite3_result_error_nomem(context);
    if (found->any)
        return sqlite3_result_error(context,
                                    "Subquery returned more than 1 value. This is not permitted "
                                    "when the subquery follows =, !=, <, <= , >, >= or when the "
                                    "subquery is used as an expression.",
                                    -1);
    found->any = true;
    found->value = sqlite3_value_dup(values[0]);
}

void Final(sqlite3_context* context) {
    auto* found = static_cast<Found*>(sqlite3_aggregate_context(context, 0));
    if (!found || !found->value) return sqlite3_result_null(context);
    sqlite3_result_value(context, found->value);
    sqlite3_value_free(found->value);
}

} // namespace

void Install(sqlite3* db) {
    sqlite3_create_function(db, "zlx_single", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                            nullptr, &Step, &Final);
}

} // namespace zlx::ado::SqliteSingleValue
