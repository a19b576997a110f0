#include "platform/tsql/BuiltinFunctions.h"

#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlFormat.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>
#include <QSysInfo>
#include <algorithm>

namespace zlx::tsql {
namespace {

// The functions written alike on every engine, over the zlx_ functions both engines get.
constexpr FunctionSpelling kCommon[] = {
    {"LOG", 1, true, "zlx_log(%1)"},
    {"LOG", 2, true, "zlx_log(%1, %2)"},
    {"STR", 1, true, "zlx_str(%1, 10, 0)"},
    {"STR", 2, true, "zlx_str(%1, %2, 0)"},
    {"STR", 3, true, "zlx_str(%1, %2, %3)"},
    {"REPLICATE", 2, true, "zlx_replicate(%1, %2)"},
    {"SPACE", 1, true, "zlx_replicate(' ', %1)"},
    {"STUFF", 4, true, "zlx_stuff(%1, %2, %3, %4)"},
    {"PATINDEX", 2, true, "zlx_patindex(%1, %2)"},
    {"ASCII", 1, true, "zlx_ascii(%1)"},
    {"CHAR", 1, true, "zlx_char(%1)"},
    {"NCHAR", 1, true, "zlx_nchar(%1)"},
    {"ISNUMERIC", 1, true, "zlx_isnumeric(%1)"},
    {"QUOTENAME", 1, true, "zlx_quotename(%1, '[')"},
    {"QUOTENAME", 2, true, "zlx_quotename(%1, %2)"},
    {"DATEFROMPARTS", 3, true, "zlx_datefromparts(%1, %2, %3)"},
    // Written as CASE before (CaseComparisons): here for a call of another count, refused.
    {"IIF", 3, true, "(CASE WHEN %1 THEN %2 ELSE %3 END)"},
    {"SQUARE", 1, true, "power(CAST(%1 AS float), 2)"},
    {"ATN2", 2, true, "atan2(%1, %2)"},
    {"DEGREES", 1, true, "degrees(%1)"},
    {"RADIANS", 1, true, "radians(%1)"},
    // Both engines count in 64 bits.
    {"COUNT_BIG", -1, false, "count(%*)"},
    {"OBJECT_NAME", 1, true, "(SELECT name FROM sysobjects WHERE xtype IN ('U', 'V') AND id = %1)"},
    {"SOUNDEX", 1, true, "zlx_soundex(%1)"},
    {"DIFFERENCE", 2, true, "zlx_difference(%1, %2)"},
};

// The functions that answer of a table's identity, by the table's name.
const QStringList& IdentityFunctions() {
    static const QStringList names = {QStringLiteral("IDENT_SEED"), QStringLiteral("IDENT_INCR"),
                                      QStringLiteral("IDENT_CURRENT")};
    return names;
}

// Written by the writer itself rather than from a spelling.
const QStringList& OwnFunctions() {
    static const QStringList names = {QStringLiteral("FORMAT"),     QStringLiteral("HOST_NAME"),
                                      QStringLiteral("APP_NAME"),   QStringLiteral("SUSER_SNAME"),
                                      QStringLiteral("SUSER_NAME"), QStringLiteral("USER_NAME"),
                                      QStringLiteral("COL_LENGTH")};
    return names;
}

bool Named(const FunctionSpelling& spelling, const QString& name) {
    return name.compare(QLatin1StringView(spelling.name), Qt::CaseInsensitive) == 0;
}

// The spelling of `name` with `count` arguments in `table`; nullptr when there is none, and
// `named` set when the name is there with other counts.
const FunctionSpelling* Find(std::span<const FunctionSpelling> table, const QString& name,
                             int count, bool& named) {
    for (const FunctionSpelling& spelling : table) {
        if (!Named(spelling, name)) continue;
        named = true;
        if (spelling.arguments == count || spelling.arguments == -1) return &spelling;
    }
    return nullptr;
}

QString Fill(const FunctionSpelling& spelling, const std::vector<CallArgument>& arguments) {
    QStringList sql;
    for (const CallArgument& argument : arguments)
        sql << argument.sql.trimmed();
    if (spelling.arguments == -1)
        return QString::fromLatin1(spelling.pattern)
            .replace(QStringLiteral("%*"), sql.join(QStringLiteral(", ")));
    return FillPattern(spelling.pattern, sql);
}

[[noreturn]] void ThrowArgumentCount(const QString& function) {
    ThrowStatementError(
        QStringLiteral("The %1 function requires a different number of arguments.").arg(function),
        ado::kNativeArgumentCount);
}

QString UserName() {
    const QString user = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    return user.isEmpty() ? QStringLiteral("dbo") : user;
}

} // namespace

QString ColumnNameOf(const CallArgument& argument) {
    static const QRegularExpression column(QStringLiteral(R"(^(?:.*\.)?["\[]?(\w+)["\]]?$)"));
    const auto match = column.match(argument.sql.trimmed());
    return match.hasMatch() ? match.captured(1) : QString();
}

bool IsIntegerArgument(const TranslationContext& context, const CallArgument& argument) {
    static const QRegularExpression whole(QStringLiteral(R"(^[+-]?\d+$)"));
    if (whole.match(argument.sql.trimmed()).hasMatch()) return true;
    const QString name = ColumnNameOf(argument);
    if (name.isEmpty() || !context.columnType) return false;
    const QString type = context.columnType(name);
    return type == u"INT" || type == u"INTEGER" || type == u"SMALLINT" || type == u"TINYINT" ||
           type == u"BIGINT";
}

BuiltinFunctionWriter::BuiltinFunctionWriter(const TranslationContext& context)
    : m_context(context), m_dialect(DialectOf(context)) {}

bool BuiltinFunctionWriter::Handles(const QString& function) {
    static const QSet<QString> names = [] {
        QSet<QString> all = {
            QStringLiteral("CONCAT"),  QStringLiteral("CONCAT_WS"), QStringLiteral("REVERSE"),
            QStringLiteral("UNICODE"), QStringLiteral("CHARINDEX"), QStringLiteral("NEWID"),
            QStringLiteral("STDEV"),   QStringLiteral("STDEVP"),    QStringLiteral("VAR"),
            QStringLiteral("VARP"),    QStringLiteral("ROUND")};
        for (const FunctionSpelling& spelling : kCommon)
            all.insert(QString::fromLatin1(spelling.name));
        for (const QString& name : OwnFunctions() + IdentityFunctions())
            all.insert(name);
        return all;
    }();
    return names.contains(function.toUpper());
}

QString BuiltinFunctionWriter::Call(const QString& function,
                                    const std::vector<CallArgument>& arguments) const {
    const QString name = function.toUpper();
    const int count = static_cast<int>(arguments.size());
    if (name == u"FORMAT") return FormatWriter(m_context).Call(arguments);
    if (name == u"COL_LENGTH") return ColumnLength(arguments);
    if (IdentityFunctions().contains(name)) return TableIdentity(name, arguments);
    if (OwnFunctions().contains(name)) {
        if (count != 0) ThrowUnsupported(name + QStringLiteral(" with arguments"));
        return SystemValue(name);
    }
    if (name == u"CONCAT" && (count < 2 || count > 254))
        ThrowStatementError(QStringLiteral("The concat function requires 2 to 254 arguments."),
                            ado::kNativeConcatArguments);
    if (name == u"CONCAT_WS" && (count < 3 || count > 254))
        ThrowStatementError(QStringLiteral("The concat_ws function requires 3 to 254 arguments."),
                            ado::kNativeConcatArguments);
    bool named = false;
    const FunctionSpelling* spelling = Find(m_dialect.BuiltinSpellings(), name, count, named);
    if (!spelling) spelling = Find(kCommon, name, count, named);
    if (!spelling) ThrowArgumentCount(function);
    const QString sql = Fill(*spelling, arguments);
    if (name == u"DEGREES" || name == u"RADIANS") return Angle(sql, arguments.front());
    // A name compares under the database's collation, as SQL Server's names do.
    if (name == u"OBJECT_NAME") return m_dialect.CollatedText(sql);
    if (name == u"STR") return SizedText(sql, count == 1 ? QStringLiteral("10") : arguments[1].sql);
    return sql;
}

// The session's program, computer and user: the application's name, the computer's name, the
// user the program runs as (the login of Windows authentication) and dbo, the owner of the
// database that such a login is in it.
QString BuiltinFunctionWriter::SystemValue(const QString& function) const {
    if (function == u"HOST_NAME") return SqlString(QSysInfo::machineHostName());
    if (function == u"APP_NAME") return SqlString(QCoreApplication::applicationName());
    if (function == u"USER_NAME") return SqlString(QStringLiteral("dbo"));
    return SqlString(UserName());
}

// COL_LENGTH(table, column): the column's length in bytes as syscolumns gives it; NULL when
// there is no such column.
QString BuiltinFunctionWriter::ColumnLength(const std::vector<CallArgument>& arguments) const {
    if (arguments.size() != 2) ThrowArgumentCount(QStringLiteral("col_length"));
    const FunctionSpelling* objectId = m_dialect.FindFunction(QStringLiteral("OBJECT_ID"));
    return QStringLiteral("(SELECT length FROM syscolumns WHERE id = %1 AND name = %2)")
        .arg(FillPattern(objectId->pattern, {arguments[0].sql.trimmed()}),
             arguments[1].sql.trimmed());
}

// IDENT_SEED, IDENT_INCR and IDENT_CURRENT('t'): NULL for a table without identity or no table.
QString BuiltinFunctionWriter::TableIdentity(const QString& function,
                                             const std::vector<CallArgument>& arguments) const {
    if (arguments.size() != 1) ThrowArgumentCount(function.toLower());
    const CallArgument& table = arguments.front();
    if (!table.isText || table.text.contains(u'.') || !m_context.tableColumns)
        ThrowUnsupported(function + QStringLiteral(" de una expresión o un nombre con esquema"));
    const TableColumns columns = m_context.tableColumns(table.text);
    const auto identity = std::find_if(columns.begin(), columns.end(),
                                       [](const TableColumn& column) { return column.identity; });
    if (identity == columns.end()) return QStringLiteral("NULL");
    if (function == u"IDENT_SEED") return QString::number(identity->seed);
    if (function == u"IDENT_INCR") return QString::number(identity->step);
    return m_dialect.CurrentIdentity(table.text, *identity);
}

// STR is a varchar of its length when that is a literal.
QString BuiltinFunctionWriter::SizedText(const QString& sql, const QString& length) const {
    const int size = length.trimmed().toInt();
    if (size < 1 || size > 8000) return sql;
    return QStringLiteral("CAST(%1 AS %2)")
        .arg(sql, m_dialect.CastType(QStringLiteral("VARCHAR(%1)").arg(size)));
}

QString BuiltinFunctionWriter::Angle(const QString& sql, const CallArgument& argument) const {
    if (!IsIntegerArgument(m_context, argument)) return sql;
    return m_dialect.TruncatingCast(sql, m_dialect.CastType(QStringLiteral("BIGINT")));
}

} // namespace zlx::tsql
