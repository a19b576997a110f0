// PostgresDialect: SQL Server's built-in functions over PostgreSQL's own and the zlx_ functions
// of PostgresBuiltins.
#include "platform/tsql/PostgresDialect.h"

namespace zlx::tsql {
namespace {

// The spreads of numeric values are numeric on PostgreSQL, floats on SQL Server.
constexpr FunctionSpelling kBuiltins[] = {
    {"REVERSE", 1, true, "reverse(CAST(%1 AS text))"},
    {"UNICODE", 1, true, "zlx_unicode(%1)"},
    {"CHARINDEX", 3, true, "zlx_charindex(%1, %2, %3)"},
    {"CONCAT", -1, true, "concat(%*)"},
    {"NEWID", 0, true, "gen_random_uuid()"},
    {"ROUND", 2, true, "zlx_round(%1, %2, 0)"},
    {"ROUND", 3, true, "zlx_round(%1, %2, %3)"},
    {"STDEV", 1, true, "CAST(stddev_samp(%1) AS double precision)"},
    {"STDEVP", 1, true, "CAST(stddev_pop(%1) AS double precision)"},
    {"VAR", 1, true, "CAST(var_samp(%1) AS double precision)"},
    {"VARP", 1, true, "CAST(var_pop(%1) AS double precision)"},
};

} // namespace

std::span<const FunctionSpelling> PostgresDialect::BuiltinSpellings() const {
    return kBuiltins;
}

} // namespace zlx::tsql
