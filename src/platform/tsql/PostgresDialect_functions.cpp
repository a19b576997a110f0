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
    {"CONCAT_WS", -1, true, "concat_ws(%*)"},
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

// concat writes a value with its trailing blanks (a cast to text would drop them) but makes
// NULL an empty text, which STRING_AGG would join: NULLs stay out.
QString PostgresDialect::StringAggregate(const QString& value, const QString& separator,
                                         const QString& order) const {
    return QStringLiteral("string_agg(CASE WHEN (%1) IS NULL THEN NULL ELSE concat(%1) END, %2%3)")
        .arg(value, separator, order.isEmpty() ? QString() : u' ' + order);
}

} // namespace zlx::tsql
