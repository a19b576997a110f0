// SqliteDialect: SQL Server's built-in functions over the engine functions of SqliteBuiltins
// and SqliteText (texts under the collation, NULLs as SQL Server answers them).
#include "platform/tsql/SqliteDialect.h"
#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {
namespace {

constexpr FunctionSpelling kBuiltins[] = {
    {"REVERSE", 1, true, "zlx_reverse(%1)"},     {"UNICODE", 1, true, "unicode(%1)"},
    {"CHARINDEX", 2, true, "charindex(%1, %2)"}, {"CHARINDEX", 3, true, "charindex(%1, %2, %3)"},
    {"CONCAT", -1, true, "zlx_concat(%*)"},      {"CONCAT_WS", -1, true, "zlx_concat_ws(%*)"},
    {"NEWID", 0, true, "zlx_newid()"},           {"ROUND", 2, true, "round(%1, %2)"},
    {"ROUND", 3, true, "round(%1, %2, %3)"},     {"STDEV", 1, true, "zlx_stdev(%1)"},
    {"STDEVP", 1, true, "zlx_stdevp(%1)"},       {"VAR", 1, true, "zlx_var(%1)"},
    {"VARP", 1, true, "zlx_varp(%1)"},
};

} // namespace

std::span<const FunctionSpelling> SqliteDialect::BuiltinSpellings() const {
    return kBuiltins;
}

// group_concat has no order of its own here.
QString SqliteDialect::StringAggregate(const QString& value, const QString& separator,
                                       const QString& order) const {
    if (!order.isEmpty()) ThrowUnsupported(QStringLiteral("STRING_AGG ... WITHIN GROUP"));
    return QStringLiteral("group_concat(%1, %2)").arg(value, separator);
}

} // namespace zlx::tsql
