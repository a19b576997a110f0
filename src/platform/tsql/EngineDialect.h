#pragma once
// Everything that differs between the engines the T-SQL layer runs on, in one class per
// engine: how a construct is spelled (functions, types, identity columns, collation), the
// catalog views, the statements that need more than a translation (databases, defaults,
// identity counters, locks) and the mapping of the engine's errors. TsqlTranslator and
// TsqlSession ask their dialect and hold no engine branches; a new engine is a new subclass.

#include "platform/engines/AdoError.h"
#include "platform/engines/SqlServerDateTypes.h"
#include "platform/tsql/ForeignKey.h"
#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TsqlToken.h"
#include "platform/variant/Variant.h"

#include <QStringList>
#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace zlx::ado {
class Driver;
}

namespace zlx::tsql {

// What a dialect may ask of the session it works for.
class EngineAccess {
public:
    virtual ~EngineAccess() = default;
    // Runs engine SQL and answers its rows; errors come back mapped.
    virtual std::vector<std::vector<Variant>> Query(const QString& sql) = 0;
    void Run(const QString& sql) { Query(sql); }
    virtual QString CurrentDatabase() const = 0;
    // What the connection was opened on: a folder or file for SQLite, a conninfo...
    virtual QString ConnectTarget() const = 0;
    // The engine's spelling of a T-SQL object name such as "db..t" or "[t]".
    virtual QString EngineObjectName(const QString& tsqlName) = 0;
};

// A T-SQL function whose engine spelling is a pattern over its arguments (%1, %2...).
struct FunctionSpelling {
    const char* name;
    int arguments;
    // Only a call with exactly `arguments` arguments is rewritten; others stay as written.
    bool exact;
    const char* pattern;
};

// How an IDENTITY(seed, step) column is written; `text` empty: not supported.
struct IdentitySpelling {
    QString text;
    bool integerKey = false; // the column's integer type becomes INTEGER (SQLite's row id)
    std::optional<std::int64_t> start; // the session sets the counter after CREATE TABLE
    // Written after an identity without a PRIMARY KEY or UNIQUE of its own where the engine's
    // identity is a key all the same, so that its duplicates can be told apart.
    QString keylessMark;
};

using ado::DateOrder;
using ado::DateUnit;

class EngineDialect {
public:
    virtual ~EngineDialect() = default;

    // The dialect for the statements a driver's engine runs; nullptr when it speaks T-SQL
    // itself (a real SQL Server), which needs no session.
    static std::unique_ptr<EngineDialect> For(const ado::Driver& driver, EngineAccess* access);

    // --- Spelling: what the translator asks. ---
    // A quoted name as the engine keeps it.
    virtual QString QuoteName(const QString& name) const;
    // The name of a CHECK, key or FOREIGN KEY constraint a definition makes, written `quoted`
    // ([name]) or not: as the engine keeps the application's spelling of it for its errors.
    virtual QString ConstraintName(const QString& name, bool quoted) const {
        return quoted ? QuoteName(name) : name;
    }
    // A word the engine reserves that SQL Server takes as a name (limit, offset...): written
    // quoted where it names something.
    virtual bool ReservesWord(const QString&) const { return false; }
    // Whether `word` is one of `words`, without regard to case (no text is made to compare).
    static bool IsOneOf(QStringView word, std::span<const QStringView> words) {
        return std::any_of(words.begin(), words.end(),
                           [word](QStringView w) { return SameTextIgnoringCase(word, w); });
    }
    // The engine's spelling of a function call, nullptr when it stays as written.
    const FunctionSpelling* FindFunction(const QString& name) const;
    // How the engine writes SQL Server's built-in functions that BuiltinFunctionWriter takes,
    // one entry per name and number of arguments (-1: any, "%*" the arguments); those missing
    // are written alike on every engine.
    virtual std::span<const FunctionSpelling> BuiltinSpellings() const = 0;
    // The date functions; `value` is a date expression or a date literal of DateLiteral,
    // `dateFirst` SET DATEFIRST.
    virtual QString DatePart(DateUnit unit, const QString& value, int dateFirst) const = 0;
    virtual QString DateName(DateUnit unit, const QString& value, int dateFirst,
                             bool spanish) const = 0;
    // value + count units, with every digit of a second the engine keeps (AsDateType fits it).
    virtual QString DateAdd(DateUnit unit, const QString& count, const QString& value) const = 0;
    virtual QString DateDiff(DateUnit unit, const QString& from, const QString& to) const = 0;
    // value + days (days may be negative or a fraction).
    virtual QString DatePlusDays(const QString& value, const QString& days) const = 0;
    // CAST(value AS DATETIME) of a value of no date type the statement tells: a number (a
    // column's or a variable's) is the date that many days after 1900-01-01, its fraction the
    // time of day; a text is read in `order`, as a date literal is.
    virtual QString NumberAsDate(const QString& value, DateOrder order) const = 0;
    // EOMONTH(value, months): the last day of the month `months` after value's.
    virtual QString EndOfMonth(const QString& value, const QString& months) const = 0;
    // CONVERT(VARCHAR, value, style), for a style that StyleFormat knows, a fraction of a second
    // to `digits` digits (DATETIME's 3, DATETIME2(n)'s n), month names in Spanish or English.
    virtual QString DateText(const QString& value, int style, int digits, bool spanish) const = 0;
    // A TIME value as the date and time it is on 1900-01-01 (an engine that reads times so: as
    // it is).
    virtual QString TimeOnFirstDay(const QString& time) const { return time; }
    // The digits of a second that the engine's times keep (TIME(7) and DATETIME2(7) keep seven).
    virtual int SecondDigits() const { return 7; }
    // A text read as a date in `order`; ISDATE of a text (empty: not supported).
    virtual QString TextToDate(const QString& text, DateOrder order) const = 0;
    virtual QString IsDate(const QString& text, DateOrder order) const = 0;
    // A date literal written 'yyyy-mm-dd hh:mm:ss[.mmm]' as a date value.
    virtual QString DateLiteral(const QString& isoLiteral) const = 0;
    // `value`, a date expression, as a column of `type` keeps it (a DATE without its time,
    // SMALLDATETIME to the minute...); its range is held with SQL Server's error 242.
    virtual QString AsDateType(const QString& value, const ado::DateType& type) const = 0;
    // A value of `type` written as its StoredDateText, as the engine's literal of that type.
    virtual QString DateTypeLiteral(const QString& storedText, const ado::DateType& type) const = 0;
    // `value`, a date expression of `type` that a SELECT returns, written so that the engine
    // reports its column as of that type (an engine that types expressions itself: as it is).
    virtual QString TypedDateResult(const QString& value, const ado::DateType& type) const {
        (void)type;
        return value;
    }
    // The engine's column type for a column of date type `type`; empty: as written.
    virtual QString DateColumnType(const ado::DateType& type) const {
        (void)type;
        return {};
    }
    // CAST(FLOOR(CAST(x AS FLOAT)) AS DATETIME): x's date at midnight.
    virtual QString DateOnly(const QString& value) const = 0;
    // The engine's type for CAST(x AS type), type in upper case; empty: not supported.
    virtual QString CastType(const QString& type) const = 0;
    // CAST(value AS type) to a text type (upper case, VARCHAR(40)) where the engine's own cast
    // would not give SQL Server's text; empty: the engine's cast.
    virtual QString TextCast(const QString& value, const QString& type) const {
        (void)value, (void)type;
        return {};
    }
    // `value`, a text, as the bytes SQL Server keeps of it: a byte a character in code page 1252,
    // or two (UTF-16) for a `national` text.
    QString TextBytes(const QString& value, bool national) const;
    // `value`, a binary value, as the text SQL Server reads in its bytes: a character a byte in
    // code page 1252, or one every two bytes (UTF-16) for a `national` text.
    QString BytesText(const QString& value, bool national) const;
    // `value`, a binary value, as its bytes' hexadecimal digits in capitals.
    virtual QString BinaryHex(const QString& value) const = 0;
    // `value`, an integer, as the last `count` (1 to 8) of its bytes, the highest first.
    virtual QString IntegerBytes(const QString& value, int count) const = 0;
    // `value`, a number, written as SQL Server's CAST to text type `target` (lower case, no
    // length) writes it: `format` 'i' an integer, 'd' a DECIMAL of `scale` places, 'm' MONEY,
    // 'f' a FLOAT or REAL; past `length` characters (0: any) "*" or error 8115 as SQL Server.
    QString NumberText(const QString& value, QChar format, int scale, int length,
                       const QString& target) const;
    // CAST(value AS type), type in upper case, truncating to an integer type as SQL Server does
    // (`textLiteral`: value is a text literal, which must hold an integer); empty: not supported.
    QString Cast(const QString& value, const QString& type, bool textLiteral) const;
    // TRY_CAST and TRY_CONVERT of `value` to an integer type, DECIMAL, NUMERIC or FLOAT: what
    // CAST answers, NULL where it fails; empty for another type.
    QString TryConversion(const QString& value, const QString& type) const;
    // CAST(value AS type) of a date `value`: to an integer type its number of days (DateDays), to
    // FLOAT, REAL, DECIMAL and NUMERIC its days with the fraction of the day (DateNumber); empty
    // for other types, which take a date as any value.
    QString DateCast(const QString& value, const QString& type) const;
    // The engine's type for a column declared `type` in CREATE/ALTER TABLE; empty: as written.
    virtual QString ColumnType(const QString&) const { return {}; }
    // What follows a column of T-SQL type `type` (upper case, with its length) so that the
    // engine holds its values to SQL Server's limits: a named check whose name, zlx_<n>_...,
    // carries SQL Server's error number. Empty: the engine's type holds them itself.
    virtual QString ColumnCheck(const QString& column, const QString& type) const {
        (void)column, (void)type;
        return {};
    }
    // The engine's type for a text column declared `type` with its length (upper case,
    // VARCHAR(40)); empty: the type as written.
    virtual QString SizedTextColumnType(const QString& type) const {
        (void)type;
        return {};
    }
    // The engine's own type for a DECIMAL, VARBINARY or BINARY column declared `type` (upper
    // case, with its digits or length), which its catalog tells from the other number and
    // binary types; empty: the type as the engine spells it otherwise.
    virtual QString DomainColumnType(const QString&) const { return {}; }
    // Whether the engine's spelling of column type `type` keeps the length written after it.
    virtual bool KeepsTypeLength(const QString&) const { return true; }
    // A binary literal (T-SQL 0x00FF10) of `hexDigits`, an even number of lower-case digits.
    virtual QString BinaryLiteral(const QString& hexDigits) const = 0;
    // Whether the engine's text comparisons count trailing blanks (the translator then takes
    // them off the literals compared).
    virtual bool TrailingBlanksCount() const { return false; }
    // What follows a text function's call so that its result compares under the database
    // collation; empty: the result keeps its argument's collation.
    virtual QString TextResultCollation() const { return {}; }
    // What follows the type of a national text column (NCHAR, NVARCHAR, NTEXT) in CREATE
    // TABLE or ALTER TABLE ADD, so that the engine, which has no such types, tells it from the
    // others; empty: the engine keeps the type as written.
    virtual QString NationalTextMark() const { return {}; }
    // Appended to text columns so that they compare without regard to case.
    virtual QString CaseInsensitiveCollation() const = 0;
    virtual IdentitySpelling Identity(std::int64_t seed, std::int64_t step) const = 0;
    // Jet's AUTOINCREMENT type; MarksAutoincrementKey: the column's PRIMARY KEY is marked too.
    virtual QString Autoincrement() const = 0;
    virtual bool MarksAutoincrementKey() const { return false; }
    // The engine's operator for LIKE (NOT LIKE when `negated`), which binds as tightly as
    // "+"; empty: LIKE as written.
    virtual QString LikeOperator(bool negated) const {
        (void)negated;
        return {};
    }
    // For LikeOperator: the pattern of LIKE `pattern` ESCAPE `escape` written without its
    // escape character, each escaped character a class of its own ("[%]").
    virtual QString EscapedPattern(const QString& pattern, const QString& escape) const {
        (void)pattern, (void)escape;
        return {};
    }
    // What an ORDER BY item (or index key) adds so that NULLs come first ascending and last
    // descending, as on SQL Server; empty: the engine orders them so already.
    virtual QString NullsOrder(bool descending) const {
        (void)descending;
        return {};
    }
    // `value`, a text with no column's collation (a literal, texts joined), compared, grouped
    // and told apart as the database's text columns are.
    virtual QString CollatedText(const QString& value) const = 0;
    // `value` rounded half away from zero to `scale` places, failing as SQL Server's
    // arithmetic overflow (8115) beyond `precision` digits, as a DECIMAL(precision, scale)
    // stores it; empty: the engine's numeric type does so itself.
    virtual QString ScaledDecimal(const QString& value, int precision, int scale) const {
        (void)value, (void)precision, (void)scale;
        return {};
    }
    // `dividend` / `divisor` whose result is MONEY: four places kept, the rest dropped (not
    // rounded).
    virtual QString MoneyQuotient(const QString& dividend, const QString& divisor) const = 0;
    // `dividend` % `divisor` of decimals of `scale` places; empty: the engine's % does it.
    virtual QString DecimalRemainder(const QString& dividend, const QString& divisor,
                                     int scale) const {
        (void)dividend, (void)divisor, (void)scale;
        return {};
    }
    // `value` as a BIT column stores it (1 for any number but 0, the words TRUE and FALSE);
    // empty: the engine stores it as it is.
    virtual QString StoredBit(const QString& value) const {
        (void)value;
        return {};
    }
    // CAST(value AS FLOAT) of a value that may be a text; empty: the engine's CAST reads texts
    // as SQL Server does.
    virtual QString RealCast(const QString& value) const {
        (void)value;
        return {};
    }
    // The date `value` as an integer: its days since 1900-01-01, one more from noon on.
    virtual QString DateDays(const QString& value) const = 0;
    // The date `value` as a FLOAT: its days since 1900-01-01 and the fraction of its day.
    virtual QString DateNumber(const QString& value) const = 0;
    // `later` minus `earlier`, two dates, as the date that many days after 1900-01-01.
    virtual QString DateDifference(const QString& later, const QString& earlier) const = 0;
    // CAST(value AS BIT), which reads back as a Boolean; empty: not supported.
    virtual QString BitCast(const QString& value) const {
        (void)value;
        return {};
    }
    // `value` padded with blanks to `length` characters, as a CHAR(length) column stores it;
    // empty: the engine's fixed-length text type pads it itself.
    virtual QString PaddedText(const QString& value, int length) const {
        (void)value, (void)length;
        return {};
    }
    // What follows ORDER BY so that the first `count` rows come with those tied with the
    // last (TOP n WITH TIES); empty: the writer counts them by rank.
    virtual QString FirstRowsWithTies(const QString& count) const {
        (void)count;
        return {};
    }
    // The aggregate that answers the one value of a scalar subquery and fails as SQL
    // Server's error 512 when there are several; empty: the engine fails so itself.
    virtual QString SingleValueAggregate() const { return {}; }
    // The hidden column that picks one row of a table (SQLite's rowid).
    virtual QString RowLocator() const = 0;
    // CAST(value AS engineType), an integer type: the fraction dropped, not rounded.
    virtual QString TruncatingCast(const QString& value, const QString& engineType) const;
    // CAST(value AS type) of a value that is no text literal, `type` an integer type in upper
    // case: a text must hold a whole number (SQL Server's error 245), a fraction is dropped.
    virtual QString IntegerCast(const QString& value, const QString& type) const;
    // `value`, the result of integer arithmetic of T-SQL type `type` (upper case), failing as
    // SQL Server's arithmetic overflow (8115) beyond the type's range.
    virtual QString IntegerResult(const QString& value, const QString& type) const;
    // Whether the engine's integer arithmetic of T-SQL type `type` fails beyond it by itself.
    virtual bool ChecksIntegerArithmetic(const QString& type) const {
        (void)type;
        return true;
    }
    // `value`, the left operand of integer arithmetic the engine does not check, in a type wide
    // enough for the result to be checked after it; empty: the engine's own type is.
    virtual QString WidenedOperand(const QString& value) const {
        (void)value;
        return {};
    }
    // DB_NAME(): the current database's name.
    virtual QString CurrentDatabaseName() const = 0;
    // The divisor of "/" and "%" checked for zero, for an engine whose division by zero is no
    // error; empty (for any divisor): the engine fails itself.
    virtual QString CheckedDivisor(const QString& divisor) const {
        (void)divisor;
        return {};
    }
    // Whether DEFAULT may stand for a value in VALUES and SET lists.
    virtual bool HasDefaultValues() const { return true; }
    // STRING_AGG of `value` with `separator`, ordered by `order` ("ORDER BY ...", or empty).
    virtual QString StringAggregate(const QString& value, const QString& separator,
                                    const QString& order) const = 0;
    // Whether the engine lacks `clause` of SQL Server's statements (ROLLUP, CUBE, GROUPING SETS,
    // GROUPING, ALL, ANY, SOME: refused; an index's INCLUDE: left out).
    virtual bool LacksClause(const QString& clause) const {
        (void)clause;
        return false;
    }
    // ALTER COLUMN c <word> type; empty: as written.
    virtual QString AlterColumnTypeWord() const { return {}; }
    // What replaces the NULL or NOT NULL (`notNull`) that ends ALTER COLUMN `column` type ...;
    // empty: as written.
    virtual QString ColumnNullability(const QString& column, bool notNull) const {
        (void)column, (void)notNull;
        return {};
    }
    // Whether an index of a table in another database names the schema on the index (SQLite)
    // rather than on the table.
    virtual bool SchemaOnIndexName() const { return false; }

    // --- The session's work on the engine. ---
    virtual QStringList CatalogStatements(const QString& applicationName) = 0;
    // The session switched to another database (USE).
    virtual void DatabaseChanged() {}
    // Brings the catalog views up to date for a batch that reads them.
    virtual void RefreshCatalog(const QString& batch) { (void)batch; }
    // A Jet database file: the date numbered 0 is 1899-12-30.
    virtual bool JetDates() const { return false; }
    // The engine's name for a database named in db..table.
    virtual QString DatabaseAlias(const QString& database) = 0;
    // Whether the `locks` tables live apart, and the schema that holds `database`'s.
    virtual bool KeepsLocksApart() const { return false; }
    virtual QString LocksSchema(const QString& database) { return database; }
    // The default expression of a column, for dialects without DEFAULT in VALUES and SET.
    virtual QString ColumnDefault(const QString& table, const QString& column) {
        (void)table, (void)column;
        return {};
    }
    // The T-SQL type (upper case, "INT", "MONEY", "NVARCHAR(20)") that every column named
    // `column` in the database has; empty when there is none or they differ.
    virtual QString ColumnTypeNamed(const QString& column) = 0;
    // SQL counting the text columns named `column` (a quoted string) in the database.
    virtual QString TextColumnCount(const QString& column) const = 0;
    // SQL counting the date columns named `column` (a quoted string) in the database.
    virtual QString DateColumnCount(const QString& column) const = 0;
    // SQL counting the integer columns named `column` (a quoted string) in the database.
    virtual QString IntegerColumnCount(const QString& column) const = 0;
    // SQL counting the columns named `column` that accept NULL (1 when no table has one), for
    // dialects with NullsOrder.
    virtual QString NullableColumnCount(const QString& column) const {
        (void)column;
        return {};
    }
    // Whether a statement refused before reaching the engine leaves its transaction open.
    virtual bool RefusalKeepsTransaction() const { return false; }

    virtual void CreateDatabase(const QString& database) = 0;
    virtual void DropDatabase(const QString& database) = 0;
    // sp_bindefault and sp_unbindefault (empty value) on an engine table and column.
    virtual void ChangeDefault(const QString& table, const QString& column,
                               const QString& value) = 0;
    // Keeps `name` as the name of the default of the engine table's column (made by a statement
    // that named it: CONSTRAINT name DEFAULT x).
    virtual void NameDefault(const QString& table, const QString& column, const QString& name) = 0;
    // Drops the default named `name` of a column of the engine table; false when no default of
    // the table has that name.
    virtual bool DropNamedDefault(const QString& table, const QString& name) = 0;
    // Whether the engine table has a constraint, or an index standing for one, named `name`.
    virtual bool HasConstraint(const QString& table, const QString& name) = 0;
    // A definition of T-SQL table `table` that holds CONSTRAINT `name` CHECK (...) as the engine
    // keeps it (see CheckCondition); empty when the table has no such CHECK.
    virtual QString CheckDefinition(const QString& table, const QString& name) = 0;
    // Drops constraint `name` of engine table `table` (one HasConstraint found) when the engine
    // needs more than the statement's translation for it; false to translate it.
    virtual bool DropConstraint(const QString&, const QString&) { return false; }
    // `error`, the failure of a statement that `rerun` runs again, naming the FOREIGN KEY
    // constraint it broke (foreign key constraint "name") where the engine names none.
    virtual ado::AdoError WithBrokenKeyNamed(const ado::AdoError& error,
                                             const std::function<void()>& rerun) {
        (void)rerun;
        return error;
    }
    // The FOREIGN KEY constraints of the T-SQL table and those of other tables that reference
    // it; none when there is no such table.
    virtual std::vector<ForeignKey> ForeignKeysAround(const QString& tsqlTable) = 0;
    // sp_indexes_rowset: %1 the table, %2 the index or NULL, %3 its engine name.
    virtual QString IndexesQuery(const QString& schema) const = 0;
    // Definitions this engine handles itself; false: translate the statement.
    virtual bool RunDefinition(const Tokens& statement) {
        (void)statement;
        return false;
    }
    // ALTER TABLE t ADD CONSTRAINT name CHECK (...), `constraint` from CONSTRAINT on written in
    // the engine's SQL, on an engine that cannot add it in place; false: run the translation.
    virtual bool AddCheckConstraint(const QString& table, const QString& constraint) {
        (void)table, (void)constraint;
        return false;
    }
    // TRUNCATE TABLE; true when the identity counter starts again with it.
    virtual QString TruncateSql(const QString& table) const = 0;
    virtual bool TruncateRestartsIdentity() const { return false; }
    // Takes the table's exclusive lock inside a transaction (WITH (TABLOCKX)).
    virtual QString ExclusiveLockSql(const QString& table) const = 0;
    // The INSERT that answers the new identity, or empty to ask LastIdentitySql() after it.
    virtual QString InsertReturningIdentity(const QString& insert, const QString& column) const {
        (void)insert, (void)column;
        return {};
    }
    virtual QString LastIdentitySql() const { return {}; }
    // The identity column of an engine table, "" when it has none. The dialect also notes the
    // table's key constraints then, so that MapRecord tells their duplicates (2627) from a
    // unique index's (2601).
    virtual QString FindIdentityColumn(const QString& table) = 0;
    // The columns of an engine table in order, each with the kind of its T-SQL type; none when
    // there is no such table.
    virtual TableColumns ColumnsOf(const QString& table) = 0;
    // The next identity of the table's column becomes value plus the identity's step.
    virtual void SetIdentity(const QString& table, const QString& column, std::int64_t value) = 0;
    // Whether the table's identity has handed out a value since the table was made: DBCC
    // CHECKIDENT's RESEED n then makes the next identity n plus the step, before that n itself.
    virtual bool IdentityTaken(const QString& table, const QString& column) = 0;
    // The next identity follows the highest value the column holds when that is past it.
    virtual void RaiseIdentity(const QString& table, const QString& column) = 0;
    // An engine whose identity counters go back with a rolled-back transaction hears of each
    // value taken inside one and puts the counters back up after a rollback (to a savepoint
    // too; `ended`: the transaction is over).
    virtual void NoteIdentityTaken(const QString& table, std::int64_t value) {
        (void)table, (void)value;
    }
    virtual void IdentitiesRolledBack(bool ended) { (void)ended; }
    // IDENT_CURRENT: the last value the identity of the engine table `table` handed out, its
    // seed before the first.
    virtual QString CurrentIdentity(const QString& table, const TableColumn& identity) const = 0;
    virtual void IdentitiesCommitted() {}
    virtual QString ReindexSql(const QString& table) const = 0;
    // The schema, written "x.", that an index of the T-SQL table must name ("" when the index
    // goes with its table).
    QString IndexSchemaOf(const QString& tsqlTable) const;

    // The engine's error as SQL Server reports it (native number, SQLSTATE 08S01 for a lost
    // link).
    virtual ado::ErrorRecord MapRecord(const ado::ErrorRecord& record) const = 0;
    ado::AdoError MapError(const ado::AdoError& error) const;

protected:
    explicit EngineDialect(EngineAccess* access) : m_access(access) {}
    EngineAccess& Access() const;
    virtual std::span<const FunctionSpelling> Functions() const = 0;
    // The conversions of TryConversion: `type` an integer type's lower-case name.
    virtual QString TryInteger(const QString& value, const QString& type) const = 0;
    virtual QString TryDecimal(const QString& value, int precision, int scale) const = 0;
    virtual QString TryFloat(const QString& value) const = 0;

private:
    EngineAccess* m_access;
};

// A string literal of `value`.
QString SqlString(const QString& value);
// The name SQL Server's messages give an integer type written in upper case ("INTEGER": int).
QString IntegerTypeName(const QString& type);
// A column check named zlx_<native>_<column>, so that its failure is reported as SQL Server's
// error `native`.
QString RangeCheck(const QString& column, std::int32_t native, const QString& condition);
// The SQL Server error a failed check of RangeCheck's stands for; 0 for any other failure.
std::int32_t RangeCheckNumber(const QString& engineMessage);
// `pattern` with %1, %2... replaced by the arguments, in one pass.
QString FillPattern(const char* pattern, const QStringList& arguments);

} // namespace zlx::tsql
