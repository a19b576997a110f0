#include "platform/tsql/PostgresDialect.h"

#include "platform/engines/SqlServerErrors.h"
#include "platform/tsql/PostgresBitValues.h"
#include "platform/tsql/PostgresBuiltins.h"
#include "platform/tsql/PostgresDateReading.h"
#include "platform/tsql/PostgresDateTypes.h"
#include "platform/tsql/PostgresFixedText.h"
#include "platform/tsql/PostgresNumberText.h"
#include "platform/tsql/PostgresNumbers.h"
#include "platform/tsql/PostgresTextBytes.h"
#include "platform/tsql/PostgresTextDomains.h"
#include "platform/tsql/PostgresTextFunctions.h"
#include "platform/tsql/PostgresTextSearch.h"
#include "platform/tsql/PostgresTypeDomains.h"
#include "platform/tsql/SystemCatalog.h"
#include "platform/tsql/TypeNames.h"

#include <QRegularExpression>
#include <map>

namespace zlx::tsql {
namespace {

const QString kDefaultNameMark = QStringLiteral("zlx default "); // a column comment's start

// Searches inside text match search keys (see PostgresTextSearch.h); text functions keep
// trailing blanks (see PostgresTextFunctions.h).
constexpr FunctionSpelling kFunctions[] = {
    {"ISNULL", 2, false, "COALESCE(%1, %2)"},
    // The statement's moment (one for the statement, a new one for the next, as SQL Server's).
    {"GETDATE", 0, false, "zlx_datetime(CAST(statement_timestamp() AS timestamp))"},
    {"GETUTCDATE", 0, false,
     "zlx_datetime(CAST(statement_timestamp() AT TIME ZONE 'UTC' AS timestamp))"},
    {"SYSDATETIME", 0, true, "CAST(statement_timestamp() AS timestamp(6))"},
    // A key's index keeps the spelling of its constraint's name (see ConstraintName).
    {"OBJECT_ID", 1, false,
     "CAST(COALESCE(CAST(to_regclass(%1) AS oid), (SELECT c.oid FROM pg_class c WHERE "
     "c.relnamespace = CAST(current_schema() AS regnamespace) AND lower(c.relname) = lower(%1) "
     "LIMIT 1)) AS integer)"},
    {"RIGHT", 2, true, "zlx_right(%1, zlx_cut_length(%2, 'RIGHT'))"},
    {"LEFT", 2, true, "zlx_left(%1, zlx_cut_length(%2, 'LEFT'))"},
    {"UPPER", 1, true, "zlx_upper(%1)"},
    {"LOWER", 1, true, "zlx_lower(%1)"},
    {"SUBSTRING", 3, true, "zlx_substring(%1, %2, %3)"},
    {"LTRIM", 1, true, "zlx_ltrim(%1)"},
    {"CHARINDEX", 2, true, "strpos(zlx_key(%2) COLLATE \"default\", zlx_key(%1))"},
    {"REPLACE", 3, true, "zlx_text_replace(%1, %2, %3)"},
    {"DATALENGTH", 1, true, "zlx_datalength(%1)"},
};

// SQL Server's column types that PostgreSQL spells otherwise.
constexpr TypeName kColumnTypes[] = {
    {"DATETIME", "timestamp(3)"},
    {"SMALLDATETIME", "timestamp(0)"},
    {"TINYINT", "smallint"},
    {"BIT", "zlx_bit"},
    {"FLOAT", "double precision"},
    {"MONEY", "numeric(19,4)"},
    {"SMALLMONEY", "numeric(10,4)"},
    {"NTEXT", "zlx_ntext"},
    {"TEXT", "zlx_text"},
    {"IMAGE", "zlx_image"},
    {"VARBINARY", "bytea"},
    {"BINARY", "bytea"},
    {"NVARCHAR", "varchar"},
    {"NCHAR", "char"},
    {"UNIQUEIDENTIFIER", "uuid"},
};

constexpr TypeName kCastTypes[] = {
    {"FLOAT", "double precision"},
    {"REAL", "double precision"},
    {"DATETIME", "timestamp(3)"},
    {"SMALLDATETIME", "timestamp(3)"},
    {"INT", "integer"},
    {"INTEGER", "integer"},
    {"BIGINT", "bigint"},
    {"SMALLINT", "integer"},
    {"TINYINT", "integer"},
    {"MONEY", "numeric(19,4)"},
    {"VARBINARY(MAX)", "bytea"},
};

// clang-format off
constexpr TypeRule kTypeRules[] = {
    {"integer", 56, "4"}, {"smallint", 52, "2"}, {"bigint", 127, "8"}, {"%zlx_bit", 104, "1"},
    {"double precision", 62, "8"}, {"real", 59, "4"}, {"timestamp(0)%", 58, "4"}, {"timestamp%", 61, "8"},
    {"date", 40, "3"}, {"time(%", 41, "5"}, {"time %", 41, "5"}, {"%zlx_datetime2_%", 42, "8"},
    {"numeric(19,4)", 60, "8"}, {"%zlx_decimal_%", 106, "p"}, {"numeric%", 108, "p"},
    {"character varying%", 167, "n"}, {"character(%", 175, "n"}, {"%zlx_nvarchar_max", 231, "-1"},
    {"%zlx_nvarchar_%", 231, "2n"}, {"%zlx_varchar_max", 167, "-1"}, {"%zlx_varchar_%", 167, "n"},
    {"%zlx_nchar_%", 239, "2n"}, {"%zlx_ntext", 99, "16"}, {"%zlx_text", 35, "16"},
    {"text", 35, "16"}, {"%zlx_image", 34, "16"}, {"%zlx_varbinary_max", 165, "-1"},
    {"%zlx_varbinary_%", 165, "n"}, {"%zlx_binary_%", 173, "n"}, {"bytea", 34, "16"},
};
// clang-format on
// The length follows "(" in a type's own name and "_" in a text domain's.
constexpr CatalogTypes kCatalogTypes{kTypeRules, "%1",
                                     "CAST(substring(%1 from '[(_](\\d+)') AS integer)"};

} // namespace

std::span<const FunctionSpelling> PostgresDialect::Functions() const {
    return kFunctions;
}

// PostgreSQL folds unquoted names to lower case; quoted ones are lowered alike so that [Name]
// and Name stay the same object, as on a case-insensitive SQL Server.
QString PostgresDialect::QuoteName(const QString& name) const {
    return EngineDialect::QuoteName(name.toLower());
}

// Quoted as written, so that the engine's errors name it so (see DropConstraint).
QString PostgresDialect::ConstraintName(const QString& name, bool) const {
    return EngineDialect::QuoteName(name);
}

// PostgreSQL's reserved words and those it keeps from column names that SQL Server does not
// reserve (words with a meaning in T-SQL, such as CAST or BINARY, are left out).
bool PostgresDialect::ReservesWord(const QString& word) const {
    static constexpr QStringView words[] = {
        u"ANALYSE",    u"ANALYZE",      u"ARRAY",           u"ASYMMETRIC",   u"BOTH",
        u"COLLATION",  u"CONCURRENTLY", u"CURRENT_CATALOG", u"CURRENT_ROLE", u"CURRENT_SCHEMA",
        u"DEFERRABLE", u"DO",           u"FREEZE",          u"ILIKE",        u"INITIALLY",
        u"LATERAL",    u"LEADING",      u"LIMIT",           u"LOCALTIME",    u"LOCALTIMESTAMP",
        u"NATURAL",    u"NOTNULL",      u"OFFSET",          u"OVERLAPS",     u"PLACING",
        u"RETURNING",  u"SIMILAR",      u"SYMMETRIC",       u"TRAILING",     u"VARIADIC",
        u"VERBOSE",    u"WINDOW"};
    return IsOneOf(word, words);
}

QString PostgresDialect::DateOnly(const QString& value) const {
    return QStringLiteral("date_trunc('day', %1)").arg(value);
}

QString PostgresDialect::BinaryHex(const QString& value) const {
    return QStringLiteral("upper(encode(%1, 'hex'))").arg(value);
}

// int8send writes the eight bytes of a bigint, the highest first.
QString PostgresDialect::IntegerBytes(const QString& value, int count) const {
    return QStringLiteral("substr(int8send(CAST(%1 AS bigint)), %2)").arg(value).arg(9 - count);
}

QString PostgresDialect::CastType(const QString& type) const {
    if (const auto text = SizedTextType(type))
        return (text->variable ? QStringLiteral("varchar(") : QStringLiteral("char(")) +
               text->length + u')';
    if (type.startsWith(u"DECIMAL") || type.startsWith(u"NUMERIC")) return type.toLower();
    return LookUpType(kCastTypes, type);
}

// A value of any type is a bpchar with its blanks (a text of another type through its output),
// compared as a column of the database (a literal's bpchar would take the engine's collation).
QString PostgresDialect::TextCast(const QString& value, const QString& type) const {
    const auto text = SizedTextType(type);
    if (!text || !text->variable) return {};
    return QStringLiteral("(zlx_varchar(CAST(%1 AS bpchar), %2) COLLATE zlx_ci_ai)")
        .arg(value, text->length);
}

// A database is a schema.
QString PostgresDialect::CurrentDatabaseName() const {
    return QStringLiteral("CAST(current_schema() AS varchar)");
}

// PostgreSQL rounds a fraction cast to an integer; SQL Server drops it.
QString PostgresDialect::TruncatingCast(const QString& value, const QString& engineType) const {
    return QStringLiteral("CAST(trunc(CAST(%1 AS numeric)) AS %2)").arg(value, engineType);
}

// PostgreSQL reads a text of "12.5" into an integer as 13 and fails on "doce" with its own
// error; zlx_trunc reads a text as SQL Server does (see PostgresNumbers.cpp).
QString PostgresDialect::IntegerCast(const QString& value, const QString& type) const {
    return QStringLiteral("CAST(zlx_trunc(%1, '%2') AS %3)")
        .arg(value, IntegerTypeName(type), CastType(type));
}

// zlx_try_trunc, zlx_try_numeric and zlx_try_float catch the failures of the conversions CAST
// makes (zlx_trunc, the numeric cast, zlx_float) and answer NULL.
QString PostgresDialect::TryInteger(const QString& value, const QString& type) const {
    return QStringLiteral("CAST(zlx_try_trunc(%1, '%2') AS %3)")
        .arg(value, type, CastType(type.toUpper()));
}

QString PostgresDialect::TryDecimal(const QString& value, int precision, int scale) const {
    return QStringLiteral("CAST(zlx_try_numeric(%1, %2, %3) AS numeric(%2, %3))")
        .arg(value)
        .arg(precision)
        .arg(scale);
}

QString PostgresDialect::TryFloat(const QString& value) const {
    return QStringLiteral("zlx_try_float(%1)").arg(value);
}

// PostgreSQL's smallint arithmetic fails with an error of its own (220 as a stored value's), and
// TINYINT is a smallint: both are computed as integers and held to their type by zlx_int_result.
bool PostgresDialect::ChecksIntegerArithmetic(const QString& type) const {
    return type != u"TINYINT" && type != u"SMALLINT";
}

QString PostgresDialect::WidenedOperand(const QString& value) const {
    return QStringLiteral("CAST(%1 AS integer)").arg(value);
}

// div() answers the whole quotient, truncated: of the dividend in ten-thousandths, the four places.
QString PostgresDialect::MoneyQuotient(const QString& dividend, const QString& divisor) const {
    return QStringLiteral("(div(CAST(%1 AS numeric) * 10000, %2) / 10000)").arg(dividend, divisor);
}

QString PostgresDialect::IntegerResult(const QString& value, const QString& type) const {
    if (ChecksIntegerArithmetic(type)) return EngineDialect::IntegerResult(value, type);
    return QStringLiteral("zlx_int_result(%1, '%2')").arg(value, IntegerTypeName(type));
}

// TINYINT is a smallint held to 0-255.
QString PostgresDialect::ColumnCheck(const QString& column, const QString& type) const {
    if (type != u"TINYINT") return {};
    return RangeCheck(column, ado::kNativeTypeOverflow,
                      column + QStringLiteral(" BETWEEN 0 AND 255"));
}

QString PostgresDialect::StoredBit(const QString& value) const {
    return QStringLiteral("zlx_bit_value(%1)").arg(value);
}

// A Boolean, which the driver reads back as one.
QString PostgresDialect::BitCast(const QString& value) const {
    return QStringLiteral("(zlx_bit_value(%1) <> 0)").arg(value);
}

QString PostgresDialect::SizedTextColumnType(const QString& type) const {
    return TextDomainName(type);
}

QString PostgresDialect::DomainColumnType(const QString& type) const {
    return TypeDomainName(type);
}

namespace {

// SQL that makes the domains `names` through `maker` (zlx_text_domain, zlx_type_domain), each
// unless it is there.
QString DomainsCreation(QStringView maker, const QStringList& names) {
    QStringList calls;
    for (const QString& name : names)
        calls << QStringLiteral("%1('%2')").arg(maker, name);
    return QStringLiteral("SELECT ") + calls.join(u", "_qs);
}

} // namespace

// The domains of the statement's text and typed columns are made before it runs.
bool PostgresDialect::RunDefinition(const Tokens& statement) {
    if (statement.size() < 2 || !statement[1].IsWord(u"TABLE") ||
        !(statement[0].IsWord(u"CREATE") || statement[0].IsWord(u"ALTER")))
        return false;
    if (const QStringList domains = TextDomainsOf(statement); !domains.isEmpty())
        Access().Run(DomainsCreation(u"zlx_text_domain", domains));
    if (const QStringList domains = TypeDomainsOf(statement); !domains.isEmpty())
        Access().Run(DomainsCreation(u"zlx_type_domain", domains));
    return false;
}

QString PostgresDialect::RealCast(const QString& value) const {
    return QStringLiteral("zlx_float(%1)").arg(value);
}

QString PostgresDialect::DateDays(const QString& value) const {
    return QStringLiteral("CAST(floor(EXTRACT(EPOCH FROM %1 - TIMESTAMP '1900-01-01') / 86400 + "
                          "0.5) AS integer)")
        .arg(value);
}

// The time of day counts in SQL Server's three-hundredths of a second (25920000 a day).
QString PostgresDialect::DateNumber(const QString& value) const {
    return QStringLiteral("CAST((CAST(%1 AS date) - DATE '1900-01-01') + round(EXTRACT(EPOCH FROM "
                          "%1 - date_trunc('day', %1)) * 300) / 25920000.0 AS double precision)")
        .arg(value);
}

QString PostgresDialect::DateDifference(const QString& later, const QString& earlier) const {
    return QStringLiteral("CAST(TIMESTAMP '1900-01-01' + (%1 - %2) AS timestamp(3))")
        .arg(later, earlier);
}

QString PostgresDialect::ColumnType(const QString& type) const {
    return LookUpType(kColumnTypes, type.toUpper());
}

// bytea has no length: VARBINARY(n) and BINARY(n) lose theirs.
bool PostgresDialect::KeepsTypeLength(const QString& type) const {
    return type.compare(u"VARBINARY", Qt::CaseInsensitive) != 0 &&
           type.compare(u"BINARY", Qt::CaseInsensitive) != 0;
}

QString PostgresDialect::BinaryLiteral(const QString& hexDigits) const {
    return QStringLiteral("'\\x%1'::bytea").arg(hexDigits);
}

// PostgreSQL's texts are all Unicode: a national column is one whose compression is named
// (pglz, what the others use by default), which ColumnTypeNamed reads back.
QString PostgresDialect::NationalTextMark() const {
    return QStringLiteral("COMPRESSION pglz");
}

QString PostgresDialect::CaseInsensitiveCollation() const {
    return QStringLiteral("COLLATE zlx_ci_ai");
}

// bpchar compares and hashes without trailing blanks, the collation without case or accents.
QString PostgresDialect::CollatedText(const QString& value) const {
    return QStringLiteral("CAST(%1 AS bpchar) COLLATE zlx_ci_ai").arg(value);
}

// A sequence stops at 1 counting up and at -1 counting down: a seed past that bound moves it.
IdentitySpelling PostgresDialect::Identity(std::int64_t seed, std::int64_t step) const {
    IdentitySpelling spelling;
    if (seed == 1 && step == 1) {
        spelling.text = QStringLiteral("GENERATED BY DEFAULT AS IDENTITY");
        return spelling;
    }
    QString bound;
    if (step > 0 && seed < 1) bound = QStringLiteral(" MINVALUE %1").arg(seed);
    if (step < 0 && seed > -1) bound = QStringLiteral(" MAXVALUE %1").arg(seed);
    spelling.text =
        QStringLiteral("GENERATED BY DEFAULT AS IDENTITY (START WITH %1 INCREMENT BY %2%3)")
            .arg(seed)
            .arg(step)
            .arg(bound);
    return spelling;
}

QString PostgresDialect::Autoincrement() const {
    return QStringLiteral("INTEGER GENERATED BY DEFAULT AS IDENTITY");
}

QString PostgresDialect::LikeOperator(bool negated) const {
    return negated ? QStringLiteral("!~~~") : QStringLiteral("~~~");
}

QString PostgresDialect::EscapedPattern(const QString& pattern, const QString& escape) const {
    return QStringLiteral("zlx_like_escaped(%1, %2)").arg(pattern, escape);
}

// PostgreSQL sorts NULLs after every value, SQL Server before.
QString PostgresDialect::NullsOrder(bool descending) const {
    return descending ? QStringLiteral(" NULLS LAST") : QStringLiteral(" NULLS FIRST");
}

QString PostgresDialect::AlterColumnTypeWord() const {
    return QStringLiteral(" TYPE");
}

// A column's nullability is an action of its own in ALTER TABLE.
QString PostgresDialect::ColumnNullability(const QString& column, bool notNull) const {
    return QStringLiteral(", ALTER COLUMN %1 %2 NOT NULL")
        .arg(column, notNull ? QStringLiteral("SET") : QStringLiteral("DROP"));
}

QStringList PostgresDialect::CatalogStatements(const QString& applicationName) {
    const QString type = QStringLiteral("format_type(a.atttypid, a.atttypmod)");
    // Names compare without regard to case, as in SQL Server's default collation.
    return {
        QStringLiteral("CREATE COLLATION IF NOT EXISTS pg_temp.zlx_ci (provider = icu, locale = "
                       "'und-u-ks-level2', deterministic = false)"),
        // The collation of the database's text columns, Modern_Spanish_CI_AI: case and accents
        // ignored, ñ a letter of its own; and the functions that search inside text under it.
        // Made once in the database's schema (a second connection making them at the same
        // moment is not an error).
        QStringLiteral(
            "DO $$ BEGIN IF current_schema() IS NULL THEN RETURN; END IF; IF NOT EXISTS (SELECT 1 "
            "FROM pg_collation WHERE collname = 'zlx_ci_ai' AND collnamespace = "
            "CAST(current_schema() AS regnamespace)) THEN CREATE COLLATION zlx_ci_ai "
            "(provider = icu, locale = 'es-u-ks-level1', deterministic = false); END IF; ") +
            // IMAGE is a domain over bytea, so that the catalog tells it from VARBINARY(MAX)
            // (which converts to a text, where an IMAGE value is error 529).
            QStringLiteral("IF to_regtype('zlx_image') IS NULL THEN CREATE DOMAIN zlx_image AS "
                           "bytea; END IF; ") +
            TextSearchFunctions() + TextDomainFunction() + TypeDomainFunction() +
            BlankKeepingTextFunctions() + FixedTextFunctions() + TextBytesFunction() +
            BytesTextFunction() + BitFunctions() + NumberFunctions() + NumberTextFunctions() +
            DateReadingFunctions() + DateTypeFunctions() + BuiltinFunctionsSql() +
            QStringLiteral(" EXCEPTION WHEN unique_violation OR duplicate_object OR "
                           "duplicate_function THEN NULL; END $$"),
        OlderTextColumnsConversion(),
        QStringLiteral("SET application_name = %1").arg(SqlString(applicationName)),
        QStringLiteral("CREATE OR REPLACE TEMP VIEW sysprocesses AS SELECT pid AS spid, "
                       "split_part(application_name, ':', 1) COLLATE pg_temp.zlx_ci AS "
                       "hostname, CASE WHEN application_name ~ "
                       "'^[^:]+:[0-9]+$' THEN CAST(split_part(application_name, ':', 2) AS "
                       "integer) END AS "
                       "hostprocess FROM pg_stat_activity"),
        QStringLiteral("CREATE OR REPLACE TEMP VIEW sysdatabases AS SELECT CAST(nspname AS text) "
                       "COLLATE pg_temp.zlx_ci AS name, CAST('' AS text) AS filename FROM "
                       "pg_namespace WHERE nspname NOT LIKE 'pg_%' AND nspname <> "
                       "'information_schema'"),
        QStringLiteral("CREATE OR REPLACE TEMP VIEW sysobjects AS SELECT CAST(c.relname AS text) "
                       "COLLATE pg_temp.zlx_ci AS name, CAST(c.oid AS integer) AS id, CASE "
                       "c.relkind WHEN 'r' THEN 'U' WHEN 'v' THEN 'V' ELSE 'I' END AS xtype FROM "
                       "pg_class c WHERE c.relnamespace = CAST(current_schema() AS regnamespace) "
                       "AND c.relkind IN ('r', 'v', 'i')"),
        QStringLiteral(
            "CREATE OR REPLACE TEMP VIEW syscolumns AS SELECT CAST(a.attname AS text) "
            "COLLATE pg_temp.zlx_ci AS name, CAST(a.attrelid AS integer) AS id, %1 AS "
            "xtype, %2 AS length, CAST(a.attnum AS integer) AS colid FROM pg_attribute a WHERE "
            "a.attnum > 0 AND NOT "
            "a.attisdropped")
            .arg(XtypeExpression(kCatalogTypes, type), LengthExpression(kCatalogTypes, type)),
        QStringLiteral(
            "CREATE OR REPLACE TEMP VIEW zlx_information_tables AS SELECT CAST(current_schema() "
            "AS text) COLLATE pg_temp.zlx_ci AS table_catalog, CAST('dbo' AS text) COLLATE "
            "pg_temp.zlx_ci AS table_schema, CAST(c.relname AS text) COLLATE pg_temp.zlx_ci AS "
            "table_name, CAST(CASE c.relkind WHEN 'v' THEN 'VIEW' ELSE 'BASE TABLE' END AS text) "
            "AS table_type FROM pg_class c WHERE c.relnamespace = CAST(current_schema() AS "
            "regnamespace) AND c.relkind IN ('r', 'v')"),
        QStringLiteral(
            "CREATE OR REPLACE TEMP VIEW zlx_information_columns AS SELECT CAST(current_schema() "
            "AS text) COLLATE pg_temp.zlx_ci AS table_catalog, CAST('dbo' AS text) COLLATE "
            "pg_temp.zlx_ci AS table_schema, CAST(c.relname AS text) COLLATE pg_temp.zlx_ci AS "
            "table_name, CAST(a.attname AS text) COLLATE pg_temp.zlx_ci AS column_name, "
            "CAST(a.attnum AS integer) AS ordinal_position, CAST(CASE WHEN a.attnotnull THEN 'NO' "
            "ELSE 'YES' END AS text) AS is_nullable, CAST(%1 AS text) AS data_type, %2 AS "
            "character_maximum_length FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid "
            "WHERE c.relnamespace = CAST(current_schema() AS regnamespace) AND c.relkind IN "
            "('r', 'v') AND a.attnum > 0 AND NOT a.attisdropped")
            .arg(DataTypeExpression(kCatalogTypes, type),
                 CharacterLengthExpression(kCatalogTypes, type)),
    };
}

QString PostgresDialect::DatabaseAlias(const QString& database) {
    return database.toLower();
}

namespace {

// SQL that counts `what` over the columns of the current schema named `column`.
QString CountColumnsNamed(const QString& column, const char* what) {
    return QStringLiteral("SELECT %1 FROM information_schema.columns WHERE table_schema = "
                          "current_schema() AND column_name = lower(%2)")
        .arg(QLatin1StringView(what), column);
}

} // namespace

QString PostgresDialect::TextColumnCount(const QString& column) const {
    return CountColumnsNamed(column, "count(*) FILTER (WHERE data_type IN ('character varying', "
                                     "'character', 'text'))");
}

QString PostgresDialect::DateColumnCount(const QString& column) const {
    return CountColumnsNamed(column, "count(*) FILTER (WHERE data_type LIKE 'timestamp%' OR "
                                     "data_type = 'date')");
}

QString PostgresDialect::IntegerColumnCount(const QString& column) const {
    return CountColumnsNamed(column, "count(*) FILTER (WHERE data_type IN ('integer', "
                                     "'smallint', 'bigint'))");
}

// A name no table has (an alias of the select list, say) counts as a column that may be NULL.
QString PostgresDialect::NullableColumnCount(const QString& column) const {
    return CountColumnsNamed(column, "count(*) FILTER (WHERE is_nullable = 'YES') + CASE WHEN "
                                     "count(*) = 0 THEN 1 ELSE 0 END");
}

void PostgresDialect::CreateDatabase(const QString& database) {
    Access().Run(QStringLiteral("CREATE SCHEMA \"%1\"").arg(database.toLower()));
}

void PostgresDialect::DropDatabase(const QString& database) {
    Access().Run(QStringLiteral("DROP SCHEMA \"%1\" CASCADE").arg(database.toLower()));
}

void PostgresDialect::ChangeDefault(const QString& table, const QString& column,
                                    const QString& value) {
    Access().Run(QStringLiteral("ALTER TABLE %1 ALTER COLUMN %2 %3")
                     .arg(table, column,
                          value.isEmpty() ? QStringLiteral("DROP DEFAULT")
                                          : QStringLiteral("SET DEFAULT ") + value));
}

// PostgreSQL keeps no name for a default: the column's comment holds it.
void PostgresDialect::NameDefault(const QString& table, const QString& column,
                                  const QString& name) {
    Access().Run(QStringLiteral("COMMENT ON COLUMN %1.%2 IS %3")
                     .arg(table, column, SqlString(kDefaultNameMark + name.toLower())));
}

bool PostgresDialect::DropNamedDefault(const QString& table, const QString& name) {
    const auto rows = Access().Query(
        QStringLiteral("SELECT quote_ident(attname) FROM pg_attribute a JOIN pg_description d ON "
                       "d.objoid = a.attrelid AND d.objsubid = a.attnum WHERE a.attrelid = "
                       "CAST(%1 AS regclass) AND d.description = %2")
            .arg(SqlString(table), SqlString(kDefaultNameMark + name.toLower())));
    if (rows.empty()) return false;
    const QString column = rows[0][0].ToString();
    ChangeDefault(table, column, QString());
    Access().Run(QStringLiteral("COMMENT ON COLUMN %1.%2 IS NULL").arg(table, column));
    return true;
}

bool PostgresDialect::HasConstraint(const QString& table, const QString& name) {
    return !Access()
                .Query(QStringLiteral("SELECT 1 FROM pg_constraint WHERE conrelid = CAST(%1 AS "
                                      "regclass) AND lower(conname) = lower(%2)")
                           .arg(SqlString(table), SqlString(name)))
                .empty();
}

// A constraint keeps the application's spelling (see ConstraintName), one made before it the
// lower case: it is found without regard to case, as SQL Server's names are.
bool PostgresDialect::DropConstraint(const QString& table, const QString& name) {
    const auto rows = Access().Query(
        QStringLiteral("SELECT quote_ident(conname) FROM pg_constraint WHERE conrelid = CAST(%1 AS "
                       "regclass) AND lower(conname) = lower(%2)")
            .arg(SqlString(table), SqlString(name)));
    if (rows.empty()) return false;
    Access().Run(
        QStringLiteral("ALTER TABLE %1 DROP CONSTRAINT %2").arg(table, rows[0][0].ToString()));
    return true;
}

QString PostgresDialect::CheckDefinition(const QString& table, const QString& name) {
    const auto rows = Access().Query(
        QStringLiteral("SELECT pg_get_constraintdef(oid) FROM pg_constraint WHERE conrelid = "
                       "to_regclass(%1) AND contype = 'c' AND conname = %2")
            .arg(SqlString(Access().EngineObjectName(table)), SqlString(name)));
    return rows.empty() ? QString()
                        : QStringLiteral("CONSTRAINT \"%1\" %2").arg(name, rows[0][0].ToString());
}

std::vector<ForeignKey> PostgresDialect::ForeignKeysAround(const QString& tsqlTable) {
    // The columns of a key in their order, joined by commas.
    const auto columns = [](const char* keys, const char* table) {
        return QStringLiteral("(SELECT string_agg(CAST(a.attname AS text), ',' ORDER BY k.n) FROM "
                              "unnest(c.%1) WITH ORDINALITY k(num, n) JOIN pg_attribute a ON "
                              "a.attrelid = c.%2 AND a.attnum = k.num)")
            .arg(QLatin1String(keys), QLatin1String(table));
    };
    const auto rows = Access().Query(
        QStringLiteral("SELECT CAST(c.conname AS text), CAST(r.relname AS text), %1, "
                       "CAST(p.relname AS text), %2 FROM pg_constraint c JOIN pg_class r ON r.oid "
                       "= c.conrelid JOIN pg_class p ON p.oid = c.confrelid WHERE c.contype = "
                       "'f' AND to_regclass(%3) IN (c.conrelid, c.confrelid) ORDER BY c.oid")
            .arg(columns("conkey", "conrelid"), columns("confkey", "confrelid"),
                 SqlString(Access().EngineObjectName(tsqlTable))));
    std::vector<ForeignKey> keys;
    for (const auto& row : rows)
        keys.push_back({row[0].ToString(), row[1].ToString(), row[2].ToString().split(u','),
                        row[3].ToString(), row[4].ToString().split(u',')});
    return keys;
}

QString PostgresDialect::IndexesQuery(const QString&) const {
    return QStringLiteral("SELECT CAST(tablename AS text) AS TABLE_NAME, "
                          "CAST(COALESCE(%2, indexname) AS text) AS INDEX_NAME FROM "
                          "pg_indexes WHERE schemaname = current_schema() AND tablename = "
                          "lower(%1) AND (%2 IS NULL OR lower(indexname) = lower(%2) OR "
                          "lower(indexname) = lower(%3))");
}

QString PostgresDialect::TruncateSql(const QString& table) const {
    return QStringLiteral("TRUNCATE TABLE ") + table + QStringLiteral(" RESTART IDENTITY");
}

QString PostgresDialect::ExclusiveLockSql(const QString& table) const {
    return QStringLiteral("LOCK TABLE %1 IN ACCESS EXCLUSIVE MODE").arg(table);
}

QString PostgresDialect::InsertReturningIdentity(const QString& insert,
                                                 const QString& column) const {
    return insert + QStringLiteral(" RETURNING ") + column;
}

// One round trip answers the identity column (marked 1) and the key constraints' names.
QString PostgresDialect::FindIdentityColumn(const QString& table) {
    const auto rows = Access().Query(
        QStringLiteral("SELECT CAST(attname AS text), 1 FROM pg_attribute WHERE attrelid = "
                       "to_regclass(%1) AND attidentity <> '' UNION ALL SELECT CAST(conname AS "
                       "text), 0 FROM pg_constraint WHERE conrelid = to_regclass(%1) AND contype "
                       "IN ('p', 'u')")
            .arg(SqlString(table)));
    QString identity;
    QStringList keys;
    for (const auto& row : rows) {
        if (row.at(1).ToLong() == 1)
            identity = row.at(0).ToString();
        else
            keys << row.at(0).ToString();
    }
    m_keyConstraints.Note(table, keys);
    return identity;
}

namespace {

// The engine's date types back to SQL Server's: timestamp(0) a SMALLDATETIME, another timestamp a
// DATETIME, a DATETIME2(n) the domain zlx_datetime2_n; empty for other types.
QString TsqlDateTypeOf(const QString& type) {
    static const QRegularExpression dateTime2(QStringLiteral("^(?:.*\\.)?zlx_datetime2_(\\d)$"));
    if (const auto match = dateTime2.match(type); match.hasMatch())
        return QStringLiteral("DATETIME2(%1)").arg(match.captured(1));
    if (type.startsWith(u"timestamp(0)")) return QStringLiteral("SMALLDATETIME");
    if (type.startsWith(u"timestamp")) return QStringLiteral("DATETIME");
    // time(6) stands for TIME and TIME(7) too: the engine keeps six digits at most.
    static const QRegularExpression fewerDigits(QStringLiteral("^time\\(([0-5])\\)"));
    if (const auto match = fewerDigits.match(type); match.hasMatch())
        return QStringLiteral("TIME(%1)").arg(match.captured(1));
    if (type.startsWith(u"time")) return QStringLiteral("TIME");
    return {};
}

// The engine's number, date and binary types back to what SQL Server's were (MONEY is
// numeric(19,4) here, TINYINT is smallint, BIT the domain zlx_bit, a binary type of any length
// bytea); empty for the others.
QString TsqlTypeOf(const QString& type) {
    static const TypeName kinds[] = {
        {"integer", "INT"},          {"smallint", "SMALLINT"},      {"bigint", "BIGINT"},
        {"zlx_bit", "BIT"},          {"double precision", "FLOAT"}, {"real", "REAL"},
        {"numeric(19,4)", "MONEY"},  {"numeric(10,4)", "MONEY"},    {"date", "DATE"},
        {"bytea", "VARBINARY(MAX)"}, {"zlx_image", "IMAGE"},
    };
    QString tsql = LookUpType(kinds, type);
    if (tsql.isEmpty()) tsql = TsqlTypeOfTextDomain(type);
    if (tsql.isEmpty()) tsql = TsqlTypeOfTypeDomain(type);
    if (tsql.isEmpty() && type.startsWith(u"numeric"))
        tsql = QStringLiteral("DECIMAL") + type.mid(7);
    if (tsql.isEmpty()) tsql = TsqlDateTypeOf(type);
    return tsql;
}

// The T-SQL type of a column of engine type `type` (format_type's): a TINYINT is a smallint
// with its range check (see ColumnCheck), a national text one compressed with pglz (see
// NationalTextMark).
QString TsqlColumnType(const QString& type, bool national, bool tinyint) {
    static const TypeName texts[] = {
        {"character varying", "VARCHAR"}, {"character", "CHAR"}, {"text", "TEXT"}};
    if (tinyint) return QStringLiteral("TINYINT");
    if (const QString tsql = TsqlTypeOf(type); !tsql.isEmpty()) return tsql;
    const QString base = type.section(u'(', 0, 0);
    const QString text = LookUpType(texts, base);
    if (text.isEmpty()) return type.toUpper();
    return (national ? QStringLiteral("N") : QString()) + text + type.mid(base.size());
}

} // namespace

QString PostgresDialect::ColumnTypeNamed(const QString& column) {
    const auto rows = Access().Query(
        QStringLiteral(
            "SELECT DISTINCT format_type(a.atttypid, a.atttypmod), "
            "CAST(a.attcompression = 'p' AS integer), CAST(EXISTS (SELECT 1 FROM "
            "pg_constraint k WHERE k.conrelid = c.oid AND lower(k.conname) = lower('zlx_220_' || "
            "a.attname)) AS integer) FROM pg_attribute a JOIN pg_class "
            "c ON c.oid = a.attrelid WHERE c.relnamespace = CAST(current_schema() AS "
            "regnamespace) AND c.relkind IN ('r', 'v') AND a.attname = lower(%1) AND "
            "a.attnum > 0 AND NOT a.attisdropped")
            .arg(SqlString(column)));
    if (rows.size() != 1) return {};
    return TsqlColumnType(rows[0].at(0).ToString().section(u'.', -1), rows[0].at(1).ToLong() == 1,
                          rows[0].at(2).ToLong() == 1);
}

TableColumns PostgresDialect::ColumnsOf(const QString& table) {
    TableColumns columns;
    // An identity's sequence holds its seed and step.
    for (const auto& row : Access().Query(
             QStringLiteral(
                 "SELECT CAST(attname AS text), format_type(atttypid, atttypmod), "
                 "CAST(attidentity <> '' AS integer), CAST(attnotnull AS integer), "
                 "s.seqstart, s.seqincrement, CAST(attcompression = 'p' AS integer), "
                 "CAST(EXISTS (SELECT 1 FROM pg_constraint k WHERE k.conrelid = "
                 "attrelid AND lower(k.conname) = lower('zlx_220_' || attname)) AS integer) FROM "
                 "pg_attribute LEFT JOIN pg_sequence s ON attidentity <> '' AND "
                 "s.seqrelid = CAST(pg_get_serial_sequence(%1, attname) AS regclass) "
                 "WHERE attrelid = to_regclass(%1) AND attnum > 0 AND NOT attisdropped "
                 "ORDER BY attnum")
                 .arg(SqlString(table)))) {
        // A domain's type is named with its schema when that is another database's.
        const QString type = TsqlColumnType(row.at(1).ToString().section(u'.', -1),
                                            row.at(6).ToLong() == 1, row.at(7).ToLong() == 1);
        TableColumn column = ColumnOfType(row.at(0).ToString(), type, row.at(2).ToLong() != 0);
        column.notNull = row.at(3).ToLong() != 0;
        if (column.identity) {
            column.seed = row.at(4).ToInt64();
            column.step = row.at(5).ToInt64();
        }
        columns.push_back(column);
    }
    return columns;
}

// setval(s, n, true) makes the next value n plus the sequence's step, whichever its sign; a
// value past the sequence's bounds first moves the bound.
void PostgresDialect::SetIdentity(const QString& table, const QString& column, std::int64_t value) {
    const QString sequence = QStringLiteral("CAST(pg_get_serial_sequence(%1, %2) AS regclass)")
                                 .arg(SqlString(table), SqlString(column));
    const auto bounds = Access().Query(
        QStringLiteral("SELECT seqmin, seqmax FROM pg_sequence WHERE seqrelid = ") + sequence);
    if (!bounds.empty() && value < bounds[0][0].ToInt64())
        Access().Run(QStringLiteral("ALTER TABLE %1 ALTER COLUMN %2 SET MINVALUE %3")
                         .arg(table, column)
                         .arg(value));
    if (!bounds.empty() && value > bounds[0][1].ToInt64())
        Access().Run(QStringLiteral("ALTER TABLE %1 ALTER COLUMN %2 SET MAXVALUE %3")
                         .arg(table, column)
                         .arg(value));
    Access().Run(QStringLiteral("SELECT setval(%1, %2, true)").arg(sequence).arg(value));
}

void PostgresDialect::RaiseIdentity(const QString& table, const QString& column) {
    Access().Run(QStringLiteral("SELECT setval(s, m) FROM (SELECT max(%2) AS m FROM %1) x, "
                                "CAST(pg_get_serial_sequence(%3, %4) AS regclass) s WHERE m > "
                                "COALESCE(pg_sequence_last_value(s), 0)")
                     .arg(table, column, SqlString(table), SqlString(column)));
}

// A sequence that has not handed out a value since it was made or restarted has no last one.
bool PostgresDialect::IdentityTaken(const QString& table, const QString& column) {
    const auto rows = Access().Query(
        QStringLiteral("SELECT pg_sequence_last_value(CAST(pg_get_serial_sequence(%1, %2) AS "
                       "regclass)) IS NOT NULL")
            .arg(SqlString(table), SqlString(column)));
    return !rows.empty() && rows[0][0].ToBool();
}

QString PostgresDialect::CurrentIdentity(const QString& table, const TableColumn& identity) const {
    return QStringLiteral("COALESCE(pg_sequence_last_value(CAST(pg_get_serial_sequence(%1, %2) AS "
                          "regclass)), %3)")
        .arg(SqlString(table), SqlString(identity.name))
        .arg(identity.seed);
}

QString PostgresDialect::ReindexSql(const QString& table) const {
    return QStringLiteral("REINDEX TABLE ") + table;
}

ado::ErrorRecord PostgresDialect::MapRecord(const ado::ErrorRecord& record) const {
    static const std::map<QString, std::int32_t> natives = {
        {QStringLiteral("40P01"), ado::kNativeDeadlock},
        {QStringLiteral("40001"), ado::kNativeDeadlock},
        {QStringLiteral("42P01"), ado::kNativeInvalidObject},
        {QStringLiteral("42703"), ado::kNativeInvalidColumn},
        {QStringLiteral("22001"), ado::kNativeTruncation},
    };
    ado::ErrorRecord mapped = record;
    const QString& state = record.sqlState;
    if (state == u"23505") {
        // 'duplicate key value violates unique constraint "name"'
        const QString name = record.description.section(u'"', 1, 1);
        mapped.nativeError = m_keyConstraints.Contains(name) ||
                                     record.description.contains(u"_pkey") ||
                                     record.description.contains(u"_PKEY_", Qt::CaseInsensitive)
                                 ? ado::kNativeDuplicateKey
                                 : ado::kNativeDuplicateIndexKey;
    } else if (const auto found = natives.find(state); found != natives.end()) {
        mapped.nativeError = found->second;
    }
    if (state.startsWith(u"08") || state == u"57P01")
        mapped.sqlState = QString::fromLatin1(ado::kSqlStateLinkLost);
    return mapped;
}

} // namespace zlx::tsql
