#include "platform/tsql/SqliteDialect.h"

#include "platform/engines/SqlServerErrors.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/SqlServerTexts.h"
#include "platform/tsql/SqliteForeignKeys.h"
#include "platform/tsql/SystemCatalog.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TypeNames.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>
#include <map>

namespace zlx::tsql {
namespace {

// "UNIQUE constraint failed: t.a, t.b": the table t.
QString DuplicateTable(const QString& message) {
    return message.section(QStringLiteral(": "), 1).section(u'.', 0, 0);
}

// SQLite's local 'now', to the millisecond: its date functions are constants of the statement,
// computed once before the first row, so that every row reads the same moment.
#define ZLX_LOCAL_NOW "strftime('%Y-%m-%d %H:%M:%f', 'now', 'localtime')"

constexpr FunctionSpelling kFunctions[] = {
    {"ISNULL", 2, false, "ifnull(%1, %2)"},
    // The clock functions answer the statement's moment: DATETIME keeps it to .000/.003/.007,
    // SYSDATETIME() adds the clock's digits below the millisecond (SqliteDates.h).
    {"GETDATE", 0, false, "zlx_astype(" ZLX_LOCAL_NOW ", 'DATETIME')"},
    {"GETUTCDATE", 0, false, "zlx_astype(strftime('%Y-%m-%d %H:%M:%f', 'now'), 'DATETIME')"},
    {"SQRT", 1, true, "zlx_sqrt(%1)"},
    {"POWER", 2, true, "zlx_power(%1, %2)"},
    {"SYSDATETIME", 0, true, "zlx_sysdatetime(" ZLX_LOCAL_NOW ")"},
    {"OBJECT_ID", 1, false, "(SELECT id FROM sysobjects WHERE xtype IN ('U', 'V') AND name = %1)"},
    {"RIGHT", 2, true, "zlx_right(%1, %2)"},
    {"LEFT", 2, true, "zlx_left(%1, %2)"},
    {"SUBSTRING", 3, true, "zlx_substring(%1, %2, %3)"},
    {"DATALENGTH", 1, true, "zlx_datalength(%1)"},
};
#undef ZLX_LOCAL_NOW

// Dates are ISO-8601 texts, so that they compare in order.
constexpr TypeName kCastTypes[] = {
    {"FLOAT", "REAL"},         {"REAL", "REAL"},           {"DATETIME", "TEXT"},
    {"SMALLDATETIME", "TEXT"}, {"INT", "INTEGER"},         {"INTEGER", "INTEGER"},
    {"BIGINT", "INTEGER"},     {"SMALLINT", "INTEGER"},    {"TINYINT", "INTEGER"},
    {"MONEY", "NUMERIC"},      {"VARBINARY(MAX)", "BLOB"},
};

// clang-format off
constexpr TypeRule kTypeRules[] = {
    {"INT", 56, "4"}, {"INTEGER", 56, "4"}, {"SMALLINT", 52, "2"}, {"TINYINT", 48, "1"},
    {"BIGINT", 127, "8"}, {"BIT", 104, "1"}, {"FLOAT", 62, "8"}, {"REAL", 59, "4"},
    {"DATETIME", 61, "8"}, {"SMALLDATETIME", 58, "4"}, {"MONEY", 60, "8"},
    {"DATE", 40, "3"}, {"TIME%", 41, "5"}, {"DATETIME2%", 42, "8"},
    {"DEC%", 106, "p"}, {"NUMERIC%", 108, "p"}, {"NVARCHAR%MAX%", 231, "-1"}, {"NVARCHAR%", 231, "2n"},
    {"VARCHAR%MAX%", 167, "-1"}, {"VARCHAR%", 167, "n"}, {"NCHAR%", 239, "2n"}, {"CHAR%", 175, "n"},
    {"NTEXT", 99, "16"}, {"TEXT", 35, "16"}, {"IMAGE", 34, "16"}, {"VARBINARY%MAX%", 165, "-1"},
    {"VARBINARY%", 165, "n"}, {"BINARY%", 173, "n"},
};
// clang-format on
constexpr CatalogTypes kCatalogTypes{kTypeRules, "upper(%1)",
                                     "CAST(substr(%1, instr(%1, '(') + 1) AS INTEGER)"};

// SQLite's extended result codes that carry a meaning of their own here.
constexpr int kSqliteConstraintPrimaryKey = 1555;
constexpr int kSqliteConstraintUnique = 2067;
constexpr int kSqliteBusy = 5;
constexpr int kSqliteIoErr = 10;

// A name as the catalog keeps it: "mis datos" is mis datos.
QString Unquoted(const QString& name) {
    if (name.size() < 2 || !name.startsWith(u'"') || !name.endsWith(u'"')) return name;
    return name.mid(1, name.size() - 2).replace(QStringLiteral("\"\""), QStringLiteral("\""));
}

// The schema and bare name of an engine table name ("main" when it has no schema).
std::pair<QString, QString> SchemaAndName(const QString& table) {
    const int dot = table.lastIndexOf(u'.');
    return {dot < 0 ? QStringLiteral("main") : table.left(dot), table.mid(dot + 1)};
}

// The schema and the name as the catalog keeps it.
std::pair<QString, QString> SchemaAndCatalogName(const QString& table) {
    const auto [schema, name] = SchemaAndName(table);
    return {schema, Unquoted(name)};
}

SqliteIdentities::Table IdentityTable(const QString& table) {
    const auto [schema, bare] = SchemaAndCatalogName(table);
    return {schema, bare};
}

} // namespace

std::span<const FunctionSpelling> SqliteDialect::Functions() const {
    return kFunctions;
}

QString SqliteDialect::DateOnly(const QString& value) const {
    return QStringLiteral("datetime(date(%1))").arg(value);
}

QString SqliteDialect::BinaryHex(const QString& value) const {
    return QStringLiteral("zlx_hex(%1)").arg(value);
}

QString SqliteDialect::IntegerBytes(const QString& value, int count) const {
    return QStringLiteral("zlx_integer_bytes(%1, %2)").arg(value).arg(count);
}

QString SqliteDialect::CastType(const QString& type) const {
    if (SizedTextType(type)) return QStringLiteral("TEXT");
    if (type.startsWith(u"DECIMAL") || type.startsWith(u"NUMERIC"))
        return QStringLiteral("NUMERIC");
    return LookUpType(kCastTypes, type);
}

// SQLite's CAST keeps the whole text; the cut one compares as the columns do, a CHAR(n) one
// padded to n as SQL Server's.
QString SqliteDialect::TextCast(const QString& value, const QString& type) const {
    const auto text = SizedTextType(type);
    if (!text) return {};
    const QString cut = QStringLiteral("substr(CAST(%1 AS TEXT), 1, %2)").arg(value, text->length);
    return u'(' + (text->variable ? cut : PaddedText(cut, text->length.toInt())) +
           TextResultCollation() + u')';
}

// SQLite takes no MAX for a length; the type name keeps it, national or not, for DATALENGTH
// and the catalog.
QString SqliteDialect::SizedTextColumnType(const QString& type) const {
    static const QRegularExpression unsized(
        QStringLiteral("^(N?VARCHAR|VARBINARY)\\s*\\(\\s*MAX\\s*\\)$"));
    const auto match = unsized.match(type);
    return match.hasMatch() ? match.captured(1) + QStringLiteral(" MAX") : QString();
}

QString SqliteDialect::DomainColumnType(const QString& type) const {
    return SizedTextColumnType(type);
}

// A uniqueidentifier is a text here: it compares without regard to the case of its letters.
QString SqliteDialect::ColumnType(const QString& type) const {
    if (type.compare(u"UNIQUEIDENTIFIER", Qt::CaseInsensitive) == 0)
        return QStringLiteral("UNIQUEIDENTIFIER COLLATE NOCASE");
    return {};
}

// The words SQLite keeps from column names that SQL Server does not reserve.
bool SqliteDialect::ReservesWord(const QString& word) const {
    static constexpr QStringView words[] = {u"DEFERRABLE", u"LIMIT",     u"NOTHING",
                                            u"NOTNULL",    u"RETURNING", u"RAISE"};
    return IsOneOf(word, words);
}

// SQLite stores any text in any column: a text's length and an integer's range are checked.
QString SqliteDialect::ColumnCheck(const QString& column, const QString& type) const {
    if (const auto text = SizedTextType(type))
        return RangeCheck(column, ado::kNativeTruncation,
                          QStringLiteral("length(rtrim(%1)) <= %2").arg(column, text->length));
    if (type == u"TINYINT")
        return RangeCheck(column, ado::kNativeTypeOverflow,
                          column + QStringLiteral(" BETWEEN 0 AND 255"));
    if (type == u"SMALLINT")
        return RangeCheck(column, ado::kNativeTypeOverflow,
                          column + QStringLiteral(" BETWEEN -32768 AND 32767"));
    if (type == u"INT" || type == u"INTEGER")
        return RangeCheck(column, ado::kNativeArithmeticOverflow,
                          column + QStringLiteral(" BETWEEN -2147483648 AND 2147483647"));
    return {};
}

// Text columns compare without regard to case: the driver makes NOCASE fold every letter.
QString SqliteDialect::BinaryLiteral(const QString& hexDigits) const {
    return QStringLiteral("X'%1'").arg(hexDigits);
}

// SQLite gives a function's result the binary collation whatever its argument's.
QString SqliteDialect::TextResultCollation() const {
    return QStringLiteral(" COLLATE NOCASE");
}

QString SqliteDialect::CaseInsensitiveCollation() const {
    return QStringLiteral("COLLATE NOCASE");
}

// A CAST gives the value the column collation (NOCASE ignores trailing blanks too).
QString SqliteDialect::CollatedText(const QString& value) const {
    return QStringLiteral("CAST(%1 AS TEXT) COLLATE NOCASE").arg(value);
}

// Only an INTEGER PRIMARY KEY is an alias of the row id. SQLite counts by one: another step is
// written in the table's definition, where FindIdentityColumn reads it back, and the counter
// starts a step before the seed.
IdentitySpelling SqliteDialect::Identity(std::int64_t seed, std::int64_t step) const {
    IdentitySpelling spelling{QStringLiteral("PRIMARY KEY AUTOINCREMENT"), true, std::nullopt,
                              SqliteIdentities::KeylessMark()};
    if (seed != 1) spelling.text += SqliteIdentities::SeedMark(seed);
    if (step != 1) {
        spelling.text += SqliteIdentities::StepMark(step);
        spelling.start = seed - step + 1;
    } else if (seed != 1) {
        spelling.start = seed;
    }
    return spelling;
}

QString SqliteDialect::CurrentDatabaseName() const {
    return SqlString(Access().CurrentDatabase());
}

// SQLite divides by zero into NULL.
QString SqliteDialect::CheckedDivisor(const QString& divisor) const {
    return QStringLiteral("zlx_divisor(%1)").arg(divisor);
}

// SQLite keeps any number in a NUMERIC column.
QString SqliteDialect::StoredBit(const QString& value) const {
    return QStringLiteral("zlx_bit(%1)").arg(value);
}

QString SqliteDialect::RealCast(const QString& value) const {
    return QStringLiteral("zlx_float(%1)").arg(value);
}

// 2415020.5 is the Julian day of 1900-01-01.
QString SqliteDialect::DateDays(const QString& value) const {
    return QStringLiteral("(CAST(julianday(date(%1)) - 2415020.5 AS INTEGER) + (time(%1) >= "
                          "'12:00:00'))")
        .arg(value);
}

// The time of day counts in SQL Server's three-hundredths of a second (25920000 a day).
QString SqliteDialect::DateNumber(const QString& value) const {
    return QStringLiteral("(julianday(date(%1)) - 2415020.5 + round((julianday(%1) - "
                          "julianday(date(%1))) * 25920000) / 25920000.0)")
        .arg(value);
}

QString SqliteDialect::DateDifference(const QString& later, const QString& earlier) const {
    return QStringLiteral("zlx_dateplus('1900-01-01', julianday(%1) - julianday(%2))")
        .arg(later, earlier);
}

// An expression's column is read by the kind of its first value, a column's by its declared type:
// the value is found in a table whose BIT column gives the expression that type (a Boolean).
QString SqliteDialect::BitCast(const QString& value) const {
    return QStringLiteral("(SELECT b FROM temp.zlx_bits WHERE b = zlx_bit(%1))").arg(value);
}

QString SqliteDialect::ScaledDecimal(const QString& value, int precision, int scale) const {
    return QStringLiteral("zlx_decimal(%1, %2, %3)").arg(value).arg(precision).arg(scale);
}

// SQLite keeps a text as it is given in any column.
QString SqliteDialect::PaddedText(const QString& value, int length) const {
    return QStringLiteral("zlx_pad(%1, %2)").arg(value).arg(length);
}

// SQLite's CAST reads "doce" as 0 and "12.5" as 12, and its integers go on to 64 bits.
QString SqliteDialect::IntegerCast(const QString& value, const QString& type) const {
    return QStringLiteral("zlx_integer(%1, '%2')").arg(value, IntegerTypeName(type));
}

// zlx_integer, zlx_decimal and zlx_float registered again to answer NULL where they fail.
QString SqliteDialect::TryInteger(const QString& value, const QString& type) const {
    return QStringLiteral("zlx_try_integer(%1, '%2')").arg(value, type);
}

QString SqliteDialect::TryDecimal(const QString& value, int precision, int scale) const {
    return QStringLiteral("zlx_try_decimal(%1, %2, %3)").arg(value).arg(precision).arg(scale);
}

QString SqliteDialect::TryFloat(const QString& value) const {
    return QStringLiteral("zlx_try_float(%1)").arg(value);
}

// SQLite would divide the reals that MONEY values are kept as.
QString SqliteDialect::MoneyQuotient(const QString& dividend, const QString& divisor) const {
    return QStringLiteral("zlx_money_quotient(%1, %2)").arg(dividend, divisor);
}

// SQLite's % works on integers: 7.5 % 2 would be 1.
QString SqliteDialect::DecimalRemainder(const QString& dividend, const QString& divisor,
                                        int scale) const {
    return QStringLiteral("zlx_remainder(%1, %2, %3)").arg(dividend, divisor).arg(scale);
}

QString SqliteDialect::IntegerResult(const QString& value, const QString& type) const {
    return QStringLiteral("zlx_integer_result(%1, '%2')").arg(value, IntegerTypeName(type));
}

QString SqliteDialect::Autoincrement() const {
    return QStringLiteral("INTEGER");
}

ado::SqliteServerFolder SqliteDialect::Folder() const {
    return ado::SqliteServerFolder(Access().ConnectTarget());
}

bool SqliteDialect::IsServerFolder() const {
    // Only a folder found is kept: a folder made after the first question is still seen.
    const QString target = Access().ConnectTarget();
    if (m_serverFolder && target == m_folderTarget) return true;
    m_folderTarget = target;
    m_serverFolder = Folder().IsFolder();
    return m_serverFolder;
}

QStringList SqliteDialect::CatalogStatements(const QString&) {
    return QStringList{
               QStringLiteral("CREATE TEMP TABLE IF NOT EXISTS sysdatabases (name TEXT COLLATE "
                              "NOCASE, filename TEXT)"),
               QStringLiteral("CREATE TEMP TABLE IF NOT EXISTS sysprocesses (hostname TEXT "
                              "COLLATE NOCASE, hostprocess INTEGER)"),
               QStringLiteral("CREATE TEMP TABLE IF NOT EXISTS zlx_bits (b BIT PRIMARY KEY)"),
               QStringLiteral("INSERT OR IGNORE INTO temp.zlx_bits VALUES (0), (1)"),
               QStringLiteral("CREATE TEMP TABLE IF NOT EXISTS zlx_date_types (date DATE, time "
                              "TIME, datetime DATETIME, smalldatetime SMALLDATETIME, datetime2 "
                              "DATETIME2)"),
           } +
           ObjectViews(QString());
}

// Objects of the main file and, when given, of the database's attached `locks` file (their
// ids moved past the main file's so that the two never meet).
QStringList SqliteDialect::ObjectViews(const QString& locksSchema) const {
    const auto objects = [](const QString& schema, int offset) {
        return QStringLiteral("SELECT name COLLATE NOCASE AS name, rowid + %1 AS id, CASE type "
                              "WHEN 'table' THEN 'U' WHEN 'view' THEN 'V' ELSE 'I' END AS xtype "
                              "FROM \"%2\".sqlite_master WHERE name NOT LIKE 'sqlite_%'")
            .arg(offset)
            .arg(schema);
    };
    const auto columns = [](const QString& schema, int offset) {
        return QStringLiteral(
                   "SELECT p.name COLLATE NOCASE AS name, m.rowid + %1 AS id, %2 AS "
                   "xtype, %3 AS length, p.cid + 1 AS colid FROM \"%4\".sqlite_master m, "
                   "pragma_table_info(m.name, '%4') p WHERE m.type = 'table'")
            .arg(offset)
            .arg(XtypeExpression(kCatalogTypes, QStringLiteral("p.type")),
                 LengthExpression(kCatalogTypes, QStringLiteral("p.type")), schema);
    };
    constexpr int kLocksIds = 1000000;
    QString objectsView = objects(QStringLiteral("main"), 0);
    QString columnsView = columns(QStringLiteral("main"), 0);
    if (!locksSchema.isEmpty()) {
        objectsView += QStringLiteral(" UNION ALL ") + objects(locksSchema, kLocksIds);
        columnsView += QStringLiteral(" UNION ALL ") + columns(locksSchema, kLocksIds);
    }
    return QStringList{QStringLiteral("DROP VIEW IF EXISTS temp.sysobjects"),
                       QStringLiteral("CREATE TEMP VIEW sysobjects AS ") + objectsView,
                       QStringLiteral("DROP VIEW IF EXISTS temp.syscolumns"),
                       QStringLiteral("CREATE TEMP VIEW syscolumns AS ") + columnsView} +
           InformationSchemaViews();
}

// INFORMATION_SCHEMA.TABLES and .COLUMNS of the main file, as SQL Server shows them.
QStringList SqliteDialect::InformationSchemaViews() const {
    const QString owner =
        CurrentDatabaseName() + QStringLiteral(" AS TABLE_CATALOG, 'dbo' AS TABLE_SCHEMA");
    return {
        QStringLiteral("DROP VIEW IF EXISTS temp.zlx_information_tables"),
        QStringLiteral("CREATE TEMP VIEW zlx_information_tables AS SELECT %1, name COLLATE "
                       "NOCASE AS TABLE_NAME, CASE type WHEN 'view' THEN 'VIEW' ELSE 'BASE TABLE' "
                       "END AS TABLE_TYPE FROM main.sqlite_master WHERE type IN ('table', 'view') "
                       "AND name NOT LIKE 'sqlite_%'")
            .arg(owner),
        QStringLiteral("DROP VIEW IF EXISTS temp.zlx_information_columns"),
        QStringLiteral(
            "CREATE TEMP VIEW zlx_information_columns AS SELECT %1, m.name COLLATE NOCASE AS "
            "TABLE_NAME, p.name COLLATE NOCASE AS COLUMN_NAME, p.cid + 1 AS ORDINAL_POSITION, "
            "CASE WHEN p.\"notnull\" OR p.pk > 0 THEN 'NO' ELSE 'YES' END AS IS_NULLABLE, %2 AS "
            "DATA_TYPE, %3 AS CHARACTER_MAXIMUM_LENGTH FROM main.sqlite_master m, "
            "pragma_table_info(m.name, 'main') p WHERE m.type IN ('table', 'view') AND m.name "
            "NOT LIKE 'sqlite_%'")
            .arg(owner, DataTypeExpression(kCatalogTypes, QStringLiteral("p.type")),
                 CharacterLengthExpression(kCatalogTypes, QStringLiteral("p.type")))};
}

namespace {

struct CatalogMentions {
    bool objects = false;
    bool databases = false;
    bool processes = false;
};

// Which catalog views a batch names, in one pass over its text: every statement the session
// runs is looked at, and nearly none names one.
CatalogMentions MentionedCatalogs(QStringView batch) {
    CatalogMentions found;
    for (qsizetype i = 0; i < batch.size(); ++i) {
        const char16_t c = batch[i].unicode() | 0x20; // ASCII lower case
        const char16_t d = i + 1 < batch.size() ? batch[i + 1].unicode() | 0x20 : 0;
        if (!(c == u's' && d == u'y') && !(c == u'o' && d == u'b') && !(c == u'c' && d == u'o') &&
            !(c == u'i' && d == u'n'))
            continue;
        const QStringView rest = batch.sliced(i);
        const auto startsWith = [rest](QStringView name) {
            return rest.startsWith(name, Qt::CaseInsensitive);
        };
        found.objects = found.objects || startsWith(u"sysobjects") || startsWith(u"syscolumns") ||
                        startsWith(u"object_id") || startsWith(u"col_length") ||
                        startsWith(u"information_schema");
        found.databases = found.databases || startsWith(u"sysdatabases");
        found.processes = found.processes || startsWith(u"sysprocesses");
    }
    return found;
}

} // namespace

// sysdatabases and sysprocesses of a SQLite server are the folder's files and this
// machine's processes, read when a statement asks for them.
void SqliteDialect::RefreshCatalog(const QString& batch) {
    const CatalogMentions mentions = MentionedCatalogs(batch);
    EngineAccess& access = Access();
    if (mentions.objects && Folder().IsFolder() &&
        !ado::SqliteServerFolder::IsMaster(access.CurrentDatabase())) {
        for (const QString& statement : ObjectViews(LocksSchema(QString())))
            access.Run(statement);
    }
    if (mentions.databases) {
        access.Run(QStringLiteral("DELETE FROM temp.sysdatabases"));
        for (const auto& [name, file] : Folder().Databases())
            access.Run(QStringLiteral("INSERT INTO temp.sysdatabases VALUES (%1, %2)")
                           .arg(SqlString(name), SqlString(file)));
    }
    if (mentions.processes) {
        access.Run(QStringLiteral("DELETE FROM temp.sysprocesses"));
        const QString host = SqlString(QSysInfo::machineHostName());
        for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
            bool numeric = false;
            const int pid = entry.toInt(&numeric);
            if (numeric)
                access.Run(QStringLiteral("INSERT INTO temp.sysprocesses VALUES (%1, %2)")
                               .arg(host)
                               .arg(pid));
        }
    }
}

// A name in another database of the server folder that has no file is an unknown object.
void SqliteDialect::RequireDatabaseFile(const QString& database) const {
    const ado::SqliteServerFolder folder = Folder();
    if (!folder.IsFolder() || ado::SqliteServerFolder::IsMaster(database)) return;
    if (!folder.HasDatabase(database))
        ThrowStatementError(QStringLiteral("Invalid object name '%1..'.").arg(database),
                            ado::kNativeInvalidObject, QStringLiteral("42S02"));
}

void SqliteDialect::Attach(const QString& file, const QString& alias) {
    Access().Run(QStringLiteral("ATTACH DATABASE %1 AS \"%2\"").arg(SqlString(file), alias));
    m_attached << alias;
}

// Another database of the server folder is reached by attaching its file.
QString SqliteDialect::DatabaseAlias(const QString& database) {
    if (database.compare(Access().CurrentDatabase(), Qt::CaseInsensitive) == 0)
        return QStringLiteral("main");
    const QString alias = database.toLower();
    if (!m_attached.contains(alias)) {
        RequireDatabaseFile(database);
        Attach(Folder().DatabaseFile(database), alias);
    }
    return alias;
}

QString SqliteDialect::LocksSchema(const QString& database) {
    const QString name = database.isEmpty() ? Access().CurrentDatabase() : database;
    const QString alias = name.toLower() + QStringLiteral("_locks");
    if (!m_attached.contains(alias)) {
        RequireDatabaseFile(name);
        const QString file = Folder().LocksFile(name);
        QFile created(file);
        if (!created.exists() &&
            !created.open(QIODevice::WriteOnly)) // an empty file is an empty database
            ThrowStatementError(QStringLiteral("Could not create '%1'.").arg(file), 5105);
        Attach(file, alias);
    }
    return alias;
}

QString SqliteDialect::ColumnDefault(const QString& table, const QString& column) {
    for (const auto& row : Access().Query(
             QStringLiteral("SELECT dflt_value FROM pragma_table_info(%1) WHERE name = %2 COLLATE "
                            "NOCASE")
                 .arg(SqlString(table), SqlString(column))))
        return row.at(0).IsNull() ? QString() : row.at(0).ToString();
    return QString();
}

// SQL counting the columns named `column` of the database whose declared type matches
// `typeCondition` (over upper(p.type)).
QString SqliteDialect::ColumnCount(const QString& column, const char* typeCondition) {
    return QStringLiteral("SELECT count(*) FROM main.sqlite_master m, pragma_table_info(m.name) "
                          "p WHERE m.type IN ('table', 'view') AND p.name = %1 COLLATE NOCASE "
                          "AND (%2)")
        .arg(column, QLatin1StringView(typeCondition));
}

// The declared types are T-SQL's, as CREATE TABLE wrote them.
QString SqliteDialect::ColumnTypeNamed(const QString& column) {
    const auto rows = Access().Query(
        QStringLiteral("SELECT DISTINCT replace(upper(p.type), ' ', '') FROM main.sqlite_master m, "
                       "pragma_table_info(m.name) p WHERE m.type IN ('table', 'view') AND p.name "
                       "= %1 COLLATE NOCASE")
            .arg(SqlString(column)));
    return rows.size() == 1 ? rows[0].at(0).ToString() : QString();
}

QString SqliteDialect::TextColumnCount(const QString& column) const {
    return ColumnCount(column, "upper(p.type) LIKE '%CHAR%' OR upper(p.type) LIKE '%TEXT%'");
}

QString SqliteDialect::DateColumnCount(const QString& column) const {
    return ColumnCount(column, "upper(p.type) LIKE '%DATE%'");
}

QString SqliteDialect::IntegerColumnCount(const QString& column) const {
    return ColumnCount(column, "upper(p.type) IN ('INT', 'INTEGER', 'SMALLINT', 'TINYINT', "
                               "'BIGINT')");
}

void SqliteDialect::CreateDatabase(const QString& database) {
    QFile file(Folder().DatabaseFile(database));
    if (file.exists())
        ThrowStatementError(QStringLiteral("Database '%1' already exists.").arg(database), 1801);
    if (!file.open(QIODevice::WriteOnly))
        ThrowStatementError(QStringLiteral("Could not create database '%1'.").arg(database), 1802);
}

void SqliteDialect::DropDatabase(const QString& database) {
    for (const QString& alias :
         {database.toLower(), database.toLower() + QStringLiteral("_locks")}) {
        if (m_attached.removeAll(alias) > 0)
            Access().Run(QStringLiteral("DETACH DATABASE \"%1\"").arg(alias));
    }
    const ado::SqliteServerFolder folder = Folder();
    QFile::remove(folder.LocksFile(database));
    if (!QFile::remove(folder.DatabaseFile(database)))
        ThrowStatementError(
            QStringLiteral("Cannot drop the database '%1', because it does not exist.")
                .arg(database),
            3701);
}

SqliteTableRebuild SqliteDialect::Rebuilder(const QString& table) {
    auto run = [this](const QString& sql) {
        QStringList values;
        for (const auto& row : Access().Query(sql))
            values << (row.at(0).IsNull() ? QString() : row.at(0).ToInvariantString());
        return values;
    };
    const auto [schema, name] = SchemaAndName(table);
    return SqliteTableRebuild(run, schema, name);
}

void SqliteDialect::ChangeDefault(const QString& table, const QString& column,
                                  const QString& value) {
    Rebuilder(table).ChangeDefault(column, value);
}

// SQLite keeps a default's name in the table's definition (CONSTRAINT name DEFAULT x).
void SqliteDialect::NameDefault(const QString& table, const QString& column, const QString& name) {
    Rebuilder(table).NameDefault(column, name);
}

bool SqliteDialect::DropNamedDefault(const QString& table, const QString& name) {
    SqliteTableRebuild rebuild = Rebuilder(table);
    const QString column = rebuild.ColumnOfDefault(name);
    if (column.isEmpty()) return false;
    rebuild.ChangeDefault(column, QString());
    return true;
}

// A primary key or unique constraint is an index of its name; other constraints are named in
// the table's definition.
bool SqliteDialect::HasConstraint(const QString& table, const QString& name) {
    const auto [schema, bare] = SchemaAndName(table);
    return !Access()
                .Query(QStringLiteral("SELECT 1 FROM %1.sqlite_master WHERE (type = 'index' AND "
                                      "name = %3 COLLATE NOCASE) OR (type = 'table' AND name = %2 "
                                      "COLLATE NOCASE AND sql LIKE %4)")
                           .arg(schema, SqlString(bare), SqlString(name),
                                SqlString(QStringLiteral("%CONSTRAINT ") + name +
                                          QStringLiteral(" %"))))
                .empty();
}

// The table's CREATE TABLE holds its checks.
QString SqliteDialect::CheckDefinition(const QString& table, const QString&) {
    const auto [schema, bare] = SchemaAndCatalogName(Access().EngineObjectName(table));
    const auto rows = Access().Query(
        QStringLiteral("SELECT sql FROM \"%1\".sqlite_master WHERE type = 'table' AND name = %2 "
                       "COLLATE NOCASE")
            .arg(schema, SqlString(bare)));
    return rows.empty() ? QString() : rows[0][0].ToString();
}

ado::AdoError SqliteDialect::WithBrokenKeyNamed(const ado::AdoError& error,
                                                const std::function<void()>& rerun) {
    if (error.Records().empty() ||
        !error.Records().front().description.contains(u"FOREIGN KEY constraint failed"))
        return error;
    const QString name = BrokenForeignKeyName(Access(), rerun);
    if (name.isEmpty()) return error;
    std::vector<ado::ErrorRecord> records = error.Records();
    records.front().description += QStringLiteral(": foreign key constraint \"%1\"").arg(name);
    return ado::AdoError(error.Number(), error.Description(), std::move(records));
}

std::vector<ForeignKey> SqliteDialect::ForeignKeysAround(const QString& tsqlTable) {
    const auto [schema, bare] = SchemaAndCatalogName(Access().EngineObjectName(tsqlTable));
    const auto rows = Access().Query(
        QStringLiteral("SELECT m.name, f.id, f.\"table\", f.\"from\", f.\"to\", m.sql FROM "
                       "\"%1\".sqlite_master m, pragma_foreign_key_list(m.name, '%1') f WHERE "
                       "m.type = 'table' AND (m.name = %2 COLLATE NOCASE OR f.\"table\" = %2 "
                       "COLLATE NOCASE) ORDER BY m.name, f.id, f.seq")
            .arg(schema, SqlString(bare)));
    std::vector<ForeignKey> keys;
    QString last;
    for (const auto& row : rows) {
        const QString id = row[0].ToString() + u'.' + row[1].ToString();
        if (id != last) {
            keys.push_back(
                {SqliteForeignKeyName(row[5].ToString(), row[0].ToString(), row[3].ToString()),
                 row[0].ToString(),
                 {},
                 row[2].ToString(),
                 {}});
            last = id;
        }
        keys.back().columns << row[3].ToString();
        if (!row[4].IsNull()) keys.back().referencedColumns << row[4].ToString();
    }
    // REFERENCES p without columns names p's primary key.
    for (ForeignKey& key : keys) {
        if (!key.referencedColumns.isEmpty()) continue;
        for (const auto& row : Access().Query(
                 QStringLiteral("SELECT name FROM pragma_table_info(%1, '%2') WHERE pk > 0 ORDER "
                                "BY pk")
                     .arg(SqlString(key.referenced), schema)))
            key.referencedColumns << row[0].ToString();
    }
    return keys;
}

QString SqliteDialect::IndexesQuery(const QString& schema) const {
    return QStringLiteral("SELECT tbl_name AS TABLE_NAME, ifnull(%2, name) AS INDEX_NAME FROM ") +
           (schema.isEmpty() ? QStringLiteral("main.") : schema) +
           QStringLiteral("sqlite_master WHERE type = 'index' AND tbl_name = %1 COLLATE NOCASE "
                          "AND (%2 IS NULL OR name = %2 COLLATE NOCASE OR name = %3 COLLATE "
                          "NOCASE)");
}

// SQLite cannot add or drop a key constraint, nor change or drop a column's type or
// constraint in place: the table is made again. A primary key over an identity (the row id
// already) is a unique index of its name.
bool SqliteDialect::RunDefinition(const Tokens& statement) {
    if (!StartsWith(statement, {u"ALTER", u"TABLE"})) return false;
    EngineAccess& access = Access();
    if (statement.size() >= 8 && statement[3].IsWord(u"ADD") &&
        statement[4].IsWord(u"CONSTRAINT") &&
        (statement[6].IsWord(u"PRIMARY") || statement[6].IsWord(u"UNIQUE"))) {
        AddKeyConstraint(statement);
        return true;
    }
    if (statement.size() >= 8 && statement[3].IsWord(u"ADD") &&
        statement[4].IsWord(u"CONSTRAINT") && statement[6].IsWord(u"FOREIGN")) {
        AddForeignKey(statement);
        return true;
    }
    if (statement.size() > 6 && statement[3].IsWord(u"ALTER") && statement[4].IsWord(u"COLUMN")) {
        // The type is its word and the length in parentheses that may follow it.
        size_t typeEnd = 7;
        if (typeEnd < statement.size() && statement[typeEnd].IsSymbol(u"(")) {
            while (typeEnd < statement.size() && !statement[typeEnd].IsSymbol(u")"))
                ++typeEnd;
            typeEnd = std::min(typeEnd + 1, statement.size());
        }
        const QString type = TokensToSql(Tokens(statement.begin() + 6, statement.begin() + typeEnd))
                                 .simplified()
                                 .toUpper();
        Rebuilder(access.EngineObjectName(statement[2].text))
            .ChangeType(statement[5].text,
                        TokensToSql(Tokens(statement.begin() + 6, statement.end())).trimmed(),
                        ColumnCheck(statement[5].text, type));
        return true;
    }
    if (statement.size() == 6 && statement[3].IsWord(u"DROP") &&
        statement[4].IsWord(u"CONSTRAINT")) {
        const QString table = access.EngineObjectName(statement[2].text);
        if (!Rebuilder(table).DropConstraint(statement[5].text))
            access.Run(QStringLiteral("DROP INDEX ") + IndexSchemaOf(statement[2].text) +
                       statement[5].text);
        return true;
    }
    return false;
}

// ALTER TABLE t ADD CONSTRAINT name PRIMARY KEY | UNIQUE [CLUSTERED] (columns).
void SqliteDialect::AddKeyConstraint(const Tokens& statement) {
    EngineAccess& access = Access();
    size_t open = 7;
    while (open < statement.size() && !statement[open].IsSymbol(u"("))
        ++open;
    size_t close = open;
    while (close < statement.size() && !statement[close].IsSymbol(u")"))
        ++close;
    const QString columns = ArgumentList(statement, open + 1, close).join(QStringLiteral(", "));
    const QString table = access.EngineObjectName(statement[2].text);
    const bool primary = statement[6].IsWord(u"PRIMARY");
    if (primary && !FindIdentityColumn(table).isEmpty()) {
        access.Run(QStringLiteral("CREATE UNIQUE INDEX %1%2 ON %3 (%4)")
                       .arg(IndexSchemaOf(statement[2].text), statement[5].text,
                            table.section(u'.', -1), columns));
        return;
    }
    Rebuilder(table).AddConstraint(
        QStringLiteral("CONSTRAINT %1 %2 (%3)")
            .arg(statement[5].text,
                 primary ? QStringLiteral("PRIMARY KEY") : QStringLiteral("UNIQUE"), columns));
}

// ALTER TABLE t ADD CONSTRAINT name FOREIGN KEY (a) REFERENCES [dbo.]p (b) [ON ...]: the
// constraint joins the table's definition, the referenced table named without its schema.
void SqliteDialect::AddForeignKey(const Tokens& statement) {
    Tokens constraint;
    for (std::size_t i = 4; i < statement.size(); ++i) {
        const bool schema = i + 2 < statement.size() && statement[i + 1].IsSymbol(u".") &&
                            statement[i - 1].IsWord(u"REFERENCES");
        constraint.push_back(statement[schema ? i + 2 : i]);
        if (schema) constraint.back().leading = statement[i].leading;
        if (schema) i += 2;
    }
    constraint.front().leading.clear();
    Rebuilder(Access().EngineObjectName(statement[2].text))
        .AddConstraint(TokensToSql(constraint).trimmed());
}

// SQLite adds no constraint in place: the table is made again with it, which fails (547) and
// leaves the table as it was when a row breaks it.
bool SqliteDialect::AddCheckConstraint(const QString& table, const QString& constraint) {
    Rebuilder(table).AddConstraint(constraint);
    return true;
}

QString SqliteDialect::TruncateSql(const QString& table) const {
    return QStringLiteral("DELETE FROM ") + table;
}

// A write that changes nothing takes SQLite's write lock for the transaction.
QString SqliteDialect::ExclusiveLockSql(const QString& table) const {
    return QStringLiteral("DELETE FROM %1 WHERE 0").arg(table);
}

QString SqliteDialect::LastIdentitySql() const {
    return QStringLiteral("SELECT last_insert_rowid()");
}

bool SqliteDialect::HasSchema(const QString& schema) {
    if (schema.compare(u"main", Qt::CaseInsensitive) == 0 ||
        schema.compare(u"temp", Qt::CaseInsensitive) == 0)
        return true;
    return !Access()
                .Query(QStringLiteral("SELECT 1 FROM pragma_database_list WHERE name = %1 COLLATE "
                                      "NOCASE")
                           .arg(SqlString(Unquoted(schema))))
                .empty();
}

QString SqliteDialect::FindIdentityColumn(const QString& table) {
    const auto [schema, bare] = SchemaAndCatalogName(table);
    if (!HasSchema(schema)) return QString();
    NoteKeyConstraints(schema, bare);
    // What was noted of a table of that name (dropped, or in another database) goes.
    m_keyless.removeIf(
        [prefix = bare.toLower() + u'.'](const QString& key) { return key.startsWith(prefix); });
    const auto definition = Access().Query(
        QStringLiteral("SELECT sql FROM %1.sqlite_master WHERE type = 'table' AND name = %2 "
                       "COLLATE NOCASE")
            .arg(schema, SqlString(bare)));
    const QString sql = definition.empty() ? QString() : definition[0][0].ToString();
    if (!sql.contains(u"AUTOINCREMENT", Qt::CaseInsensitive)) return QString();
    m_identities.NoteStep(IdentityTable(table), SqliteIdentities::MarkedStep(sql));
    const auto rows =
        Access().Query(QStringLiteral("SELECT name FROM pragma_table_info(%1, %2) WHERE pk = 1")
                           .arg(SqlString(bare), SqlString(schema)));
    const QString column = rows.empty() ? QString() : rows[0][0].ToString();
    NoteKeyless(schema, bare, column, SqliteIdentities::MarkedKeyless(sql));
    return column;
}

// An identity marked keyless is noted, unless a unique index of its own has since made it a key.
void SqliteDialect::NoteKeyless(const QString& schema, const QString& table, const QString& column,
                                bool marked) {
    if (!marked || column.isEmpty()) return;
    const auto indexes = Access().Query(
        QStringLiteral("SELECT count(*) FROM pragma_index_list(%1, %2) l WHERE l.\"unique\" AND "
                       "(SELECT group_concat(name) FROM pragma_index_info(l.name, %2)) = %3 "
                       "COLLATE NOCASE")
            .arg(SqlString(table), SqlString(schema), SqlString(column)));
    if (indexes.empty() || indexes[0][0].ToLong() == 0)
        m_keyless.insert((table + u'.' + column).toLower());
}

// A UNIQUE constraint is an index of origin 'u'; its duplicate is reported by its columns.
void SqliteDialect::NoteKeyConstraints(const QString& schema, const QString& table) {
    std::map<QString, QStringList> columns; // index -> "t.c" in key order
    for (const auto& row : Access().Query(
             QStringLiteral("SELECT l.name, i.name FROM pragma_index_list(%1, %2) l, "
                            "pragma_index_info(l.name, %2) i WHERE l.origin = 'u' ORDER BY "
                            "l.name, i.seqno")
                 .arg(SqlString(table), SqlString(schema))))
        columns[row.at(0).ToString()] << table + u'.' + row.at(1).ToString();
    QStringList keys;
    for (const auto& [index, names] : columns)
        keys << names.join(QStringLiteral(", "));
    m_keyConstraints.Note(schema + u'.' + table, keys);
}

// The declared types are T-SQL's, as CREATE TABLE wrote them.
TableColumns SqliteDialect::ColumnsOf(const QString& table) {
    const auto [schema, bare] = SchemaAndCatalogName(table);
    TableColumns columns;
    if (!HasSchema(schema)) return columns;
    // The identity is the AUTOINCREMENT key.
    for (const auto& row : Access().Query(
             QStringLiteral("SELECT p.name, p.type, p.pk = 1 AND m.sql LIKE '%AUTOINCREMENT%', "
                            "p.\"notnull\", m.sql, p.pk > 0 FROM pragma_table_info(%1, %2) p, "
                            "%3.sqlite_master m WHERE m.type = 'table' AND m.name = %1 COLLATE "
                            "NOCASE ORDER BY p.cid")
                 .arg(SqlString(bare), SqlString(schema), schema))) {
        TableColumn column =
            ColumnOfType(row.at(0).ToString(), row.at(1).ToString(), row.at(2).ToLong() != 0);
        // A key's columns are NOT NULL on SQL Server.
        column.notNull = column.identity || row.at(3).ToLong() != 0 || row.at(5).ToLong() != 0;
        if (column.identity) {
            column.seed = SqliteIdentities::MarkedSeed(row.at(4).ToString());
            column.step = SqliteIdentities::MarkedStep(row.at(4).ToString());
        }
        columns.push_back(column);
    }
    return columns;
}

void SqliteDialect::SetIdentity(const QString& table, const QString& column, std::int64_t value) {
    m_identities.Set(Access(), IdentityTable(table), column, value);
}

// A counter still at its seed less a step has handed out nothing (a RESEED to another value
// before the first row is taken as handing out one).
bool SqliteDialect::IdentityTaken(const QString& table, const QString& column) {
    std::int64_t start = 0;
    for (const TableColumn& found : ColumnsOf(table))
        if (found.name.compare(column, Qt::CaseInsensitive) == 0) start = found.seed - found.step;
    return SqliteIdentities::Taken(Access(), IdentityTable(table), start);
}

// The counter stands a step before the seed until the first value is handed out.
QString SqliteDialect::CurrentIdentity(const QString& table, const TableColumn& identity) const {
    const auto [schema, bare] = SchemaAndCatalogName(table);
    return QStringLiteral("COALESCE((SELECT NULLIF(seq, %1) FROM %2.sqlite_sequence WHERE name = "
                          "%3 COLLATE NOCASE), %4)")
        .arg(identity.seed - identity.step)
        .arg(schema, SqlString(bare))
        .arg(identity.seed);
}

void SqliteDialect::RaiseIdentity(const QString& table, const QString& column) {
    m_identities.Raise(Access(), IdentityTable(table), column);
}

// INSERT INTO [schema.]name ...: only a table whose identity is set below its values or counts
// by a step other than 1 answers its own identity.
QString SqliteDialect::InsertReturningIdentity(const QString& insert, const QString& column) const {
    if (!m_identities.AnyNamed()) return {};
    const Tokens tokens = Tokenize(insert);
    if (tokens.size() < 3) return {};
    const bool qualified = tokens.size() > 4 && tokens[3].IsSymbol(u".");
    const QString table = qualified ? tokens[2].text + u'.' + tokens[4].text : tokens[2].text;
    return m_identities.ExplicitInsert(Access(), IdentityTable(table), insert, column);
}

void SqliteDialect::NoteIdentityTaken(const QString& table, std::int64_t value) {
    m_identities.NoteTaken(IdentityTable(table), value);
}

void SqliteDialect::IdentitiesRolledBack(bool ended) {
    m_identities.RolledBack(Access());
    if (ended) m_identities.Forget();
}

QString SqliteDialect::ReindexSql(const QString& table) const {
    return QStringLiteral("REINDEX ") + table;
}

ado::ErrorRecord SqliteDialect::MapRecord(const ado::ErrorRecord& record) const {
    ado::ErrorRecord mapped = record;
    const QString& text = record.description;
    if (record.nativeError == kSqliteConstraintPrimaryKey &&
        m_keyless.contains(text.section(QStringLiteral(": "), 1).toLower())) {
        // SQL Server keeps the value twice; SQLite's row id cannot.
        mapped.nativeError = ado::kNativeSyntax;
        mapped.description =
            QStringLiteral("Construcción T-SQL no soportada: un valor repetido en la columna "
                           "IDENTITY sin clave %1")
                .arg(text.section(QStringLiteral(": "), 1));
    } else if (record.nativeError == kSqliteConstraintPrimaryKey) {
        mapped.nativeError = ado::kNativeDuplicateKey;
        mapped.description = DuplicateKeyText(mapped.nativeError, QStringLiteral("PRIMARY KEY"),
                                              QString(), DuplicateTable(text), QString());
    } else if (record.nativeError == kSqliteConstraintUnique) {
        // "UNIQUE constraint failed: t.a, t.b"
        mapped.nativeError = m_keyConstraints.Contains(text.section(QStringLiteral(": "), 1))
                                 ? ado::kNativeDuplicateKey
                                 : ado::kNativeDuplicateIndexKey;
        mapped.description = DuplicateKeyText(mapped.nativeError, QStringLiteral("UNIQUE KEY"),
                                              QString(), DuplicateTable(text), QString());
    } else if (text.contains(u"no such table"))
        mapped.nativeError = ado::kNativeInvalidObject;
    else if (text.contains(u"no such column"))
        mapped.nativeError = ado::kNativeInvalidColumn;
    else if ((record.nativeError & 0xff) == kSqliteBusy)
        mapped.nativeError = ado::kNativeDeadlock;
    if ((record.nativeError & 0xff) == kSqliteIoErr)
        mapped.sqlState = QString::fromLatin1(ado::kSqlStateLinkLost);
    return mapped;
}

} // namespace zlx::tsql
