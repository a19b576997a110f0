#include "platform/tsql/TsqlErrors.h"

#include "platform/engines/AdoConstants.h"
#include "platform/engines/SqlServerMessages.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/SqlServerTexts.h"

#include <QStringList>

namespace zlx::tsql {

namespace {

// The source of the errors this layer raises itself, numbered already.
const QString kLayerSource = QStringLiteral("Microsoft OLE DB Provider for SQL Server");

struct FaultNumber {
    const char* key; // a PostgreSQL SQLSTATE, or the start of a SQLite message
    std::int32_t native;
};

// PostgreSQL's SQLSTATEs that mean one SQL Server error whatever the statement.
constexpr FaultNumber kPostgresStates[] = {
    {"23502", ado::kNativeNullNotAllowed},
    {"22012", ado::kNativeDivideByZero},
    {"21000", ado::kNativeSubqueryRows},
    {"42702", ado::kNativeAmbiguousColumn},
    {"42601", ado::kNativeSyntax},
    {"22008", ado::kNativeDateOutOfRange},
    {"22007", ado::kNativeDateConversion},
    {"23514", ado::kNativeConstraintConflict},
    {"23503", ado::kNativeConstraintConflict},
    {"42701", ado::kNativeColumnExists},
    {"42P06", ado::kNativeDatabaseExists},
    {"22001", ado::kNativeTruncation},
    {"2201E", ado::kNativeInvalidFloat},
    {"2201F", ado::kNativeInvalidFloat}, // a negative number's square root or fractional power
    {"22011", ado::kNativeInvalidSubstringLength}, // substr of a negative length
};

// SQLite's messages (their start, or a part of them) that mean one SQL Server error; the
// functions this layer installs in either engine fail with SQL Server's own texts.
constexpr FaultNumber kSqliteTexts[] = {
    {"NOT NULL constraint failed", ado::kNativeNullNotAllowed},
    {"ambiguous column name", ado::kNativeAmbiguousColumn},
    {"has no column named", ado::kNativeInvalidColumn},
    {"no such function", ado::kNativeUnknownFunction},
    {"syntax error", ado::kNativeSyntax},
    {"incomplete input", ado::kNativeSyntax},
    {"duplicate column name", ado::kNativeColumnExists},
    {"CHECK constraint failed", ado::kNativeConstraintConflict},
    {"FOREIGN KEY constraint failed", ado::kNativeConstraintConflict},
    {"no such index", ado::kNativeCannotDrop},
    {"integer overflow", ado::kNativeArithmeticOverflow},
    {"The maximum recursion", ado::kNativeMaxRecursion},
    {"Arithmetic overflow error for data type", ado::kNativeTypeOverflow},
    {"Arithmetic overflow error", ado::kNativeArithmeticOverflow},
    {"Conversion failed when converting the", ado::kNativeValueConversion},
    {"Use a larger integer column", ado::kNativeTextOverflowSmall},
    {"overflowed an int column", ado::kNativeTextOverflowInt},
    {"Error converting data type varchar to", ado::kNativeNumericConversion},
    {"Cannot add a NOT NULL column", ado::kNativeNotNullColumnAdded},
    {"values were supplied", ado::kNativeMoreValuesThanColumns},
    {"values for", ado::kNativeMoreValuesThanColumns},
    {"Conversion failed when converting date", ado::kNativeDateConversion},
    {"Divide by zero error encountered", ado::kNativeDivideByZero},
    {"Subquery returned more than 1 value", ado::kNativeSubqueryRows},
    {"data type resulted in an out-of-range value", ado::kNativeDateOutOfRange},
    {"An invalid floating point operation occurred", ado::kNativeInvalidFloat},
    {"Cannot construct data type date", ado::kNativeDateConstruction},
    {"Invalid length parameter passed to the LEFT or", ado::kNativeInvalidSubstringLength},
    {"Invalid length parameter passed to the", ado::kNativeInvalidLength},
};

std::int32_t TextNumber(const QString& text) {
    for (const FaultNumber& fault : kSqliteTexts)
        if (text.contains(QLatin1StringView(fault.key))) return fault.native;
    return 0;
}

bool StartsWithWords(const Tokens& statement, std::initializer_list<QStringView> words) {
    std::size_t i = 0;
    for (QStringView word : words) {
        if (i >= statement.size() || !statement[i].IsWord(word)) return false;
        ++i;
    }
    return true;
}

bool AltersColumn(const Tokens& statement) {
    for (std::size_t i = 1; i + 1 < statement.size(); ++i)
        if (statement[i].IsWord(u"ALTER") && statement[i + 1].IsWord(u"COLUMN")) return true;
    return false;
}

bool CreatesIndex(const Tokens& statement) {
    return StartsWithWords(statement, {u"CREATE", u"INDEX"}) ||
           StartsWithWords(statement, {u"CREATE", u"UNIQUE"});
}

// "invalid input syntax for type integer": the type a text failed to become.
std::int32_t ConversionNumber(const QString& text) {
    if (text.contains(u"timestamp") || text.contains(u"date") || text.contains(u"time"))
        return ado::kNativeDateConversion;
    if (text.contains(u"numeric") || text.contains(u"double") || text.contains(u"real"))
        return ado::kNativeNumericConversion;
    return ado::kNativeValueConversion;
}

// Faults whose number depends on the statement or on the message's detail, 0 for others.
std::int32_t ContextNumber(const ado::ErrorRecord& record, const Tokens& statement) {
    const QString& state = record.sqlState;
    const QString& text = record.description;
    if (const std::int32_t checked = RangeCheckNumber(text)) return checked;
    const bool drops = StartsWithWords(statement, {u"DROP"});
    // A column that exists (SQLite's "duplicate column name", PostgreSQL's 42701) is 2705.
    if (state == u"42P07" || (text.contains(u"already exists") && state != u"42701")) {
        if (StartsWithWords(statement, {u"CREATE", u"DATABASE"})) return ado::kNativeDatabaseExists;
        return CreatesIndex(statement) ? ado::kNativeIndexExists : ado::kNativeObjectExists;
    }
    if (drops &&
        (record.nativeError == ado::kNativeInvalidObject || state == u"42704" || state == u"3F000"))
        return ado::kNativeCannotDrop;
    // A NOT NULL column added to rows is 4901; ALTER COLUMN ... NOT NULL over a NULL, 515.
    if (state == u"23502" && StartsWithWords(statement, {u"ALTER"}) && !AltersColumn(statement))
        return ado::kNativeNotNullColumnAdded;
    if (text.contains(u"more expressions than target columns"))
        return ado::kNativeMoreValuesThanColumns;
    // This layer's functions fail with SQL Server's own texts.
    if (state == u"22003")
        return TextNumber(text) != 0        ? TextNumber(text)
               : text.contains(u"smallint") ? ado::kNativeTypeOverflow
                                            : ado::kNativeArithmeticOverflow;
    if (state == u"22P02") return ConversionNumber(text);
    if (state == u"42883" && text.startsWith(u"function")) return ado::kNativeUnknownFunction;
    return 0;
}

std::int32_t TableNumber(const ado::ErrorRecord& record) {
    for (const FaultNumber& fault : kPostgresStates)
        if (record.sqlState == QLatin1StringView(fault.key)) return fault.native;
    return TextNumber(record.description);
}

bool IsName(const Token& token) {
    return token.kind == TokenKind::Word || token.kind == TokenKind::QuotedName;
}

// The columns of INSERT [INTO] t (a, b) ...; none when the statement has no column list.
QStringList InsertColumns(const Tokens& statement) {
    QStringList columns;
    std::size_t i = 0;
    while (i < statement.size() && !statement[i].IsSymbol(u"(")) {
        if (statement[i].IsWord(u"VALUES") || statement[i].IsWord(u"SELECT") ||
            statement[i].IsWord(u"DEFAULT"))
            return columns;
        ++i;
    }
    for (++i; i < statement.size() && !statement[i].IsSymbol(u")"); ++i)
        if (IsName(statement[i]) && (i + 1 >= statement.size() || !statement[i + 1].IsSymbol(u".")))
            columns << statement[i].text;
    return columns;
}

// The columns of ALTER TABLE t ADD [CONSTRAINT c] PRIMARY KEY [NON]CLUSTERED (a, b); none for
// any other statement.
QStringList AddedPrimaryKeyColumns(const Tokens& statement) {
    QStringList columns;
    if (statement.size() < 4 || !statement[0].IsWord(u"ALTER") || !statement[1].IsWord(u"TABLE"))
        return columns;
    std::size_t i = 2;
    while (i + 1 < statement.size() &&
           !(statement[i].IsWord(u"PRIMARY") && statement[i + 1].IsWord(u"KEY")))
        ++i;
    for (i += 2; i < statement.size() && !statement[i].IsSymbol(u"("); ++i)
        if (!statement[i].IsWord(u"CLUSTERED") && !statement[i].IsWord(u"NONCLUSTERED"))
            return columns;
    for (++i; i < statement.size() && !statement[i].IsSymbol(u")"); ++i)
        if (IsName(statement[i]) && !statement[i].IsWord(u"ASC") && !statement[i].IsWord(u"DESC"))
            columns << statement[i].text;
    return columns;
}

} // namespace

// The layer words its errors as SQL Server's us_english texts; they are shown in Spanish.
ado::AdoError StatementError(const QString& english, std::int32_t native, const QString& sqlState) {
    ado::ErrorRecord record;
    record.number = ado::adHrCommandFailed;
    record.description = ado::SqlServerMessages::FromEnglish(native, english);
    record.source = kLayerSource;
    record.nativeError = native;
    record.sqlState = sqlState;
    return ado::AdoError(ado::adHrCommandFailed, record.description, {record});
}

void ThrowStatementError(const QString& description, std::int32_t native, const QString& sqlState) {
    throw StatementError(description, native, sqlState);
}

const QString kRefusal = QStringLiteral("Construcción T-SQL no soportada: ");

void ThrowUnsupported(const QString& construct) {
    ThrowStatementError(kRefusal + construct, ado::kNativeSyntax);
}

bool IsRefusalText(const QString& description) {
    return description.startsWith(kRefusal);
}

bool IsRefusal(const ado::AdoError& error) {
    return !error.Records().empty() && error.Records().front().source == kLayerSource &&
           error.Records().front().description.startsWith(kRefusal);
}

QStringList UpdatedColumns(const Tokens& statement) {
    QStringList columns;
    int depth = 0;
    bool inSet = false, expectTarget = false;
    QString target;
    for (const Token& token : statement) {
        if (token.IsSymbol(u"(")) ++depth;
        if (token.IsSymbol(u")")) --depth;
        if (depth != 0) continue;
        if (token.IsWord(u"FROM") || token.IsWord(u"WHERE")) break;
        if (token.IsWord(u"SET") || (inSet && token.IsSymbol(u","))) {
            inSet = expectTarget = true;
            target.clear();
        } else if (expectTarget && token.IsSymbol(u"=")) {
            if (!target.isEmpty()) columns << target;
            expectTarget = false;
        } else if (expectTarget) {
            target = IsName(token) ? token.text : QString();
        }
    }
    return columns;
}

ado::AdoError WithSqlServerNumbers(const ado::AdoError& error, const Tokens& statement,
                                   const QString& database) {
    std::vector<ado::ErrorRecord> records = error.Records();
    for (ado::ErrorRecord& record : records) {
        if (record.source == kLayerSource) continue;
        if (std::int32_t native = ContextNumber(record, statement); native != 0)
            record.nativeError = native;
        else if (native = TableNumber(record); native != 0)
            record.nativeError = native;
        record.description = SqlServerDescription(record, statement, database);
    }
    const QString description = records.empty() ? error.Description() : records.front().description;
    return ado::AdoError(error.Number(), description, std::move(records));
}

void CheckIdentityWrites(const Tokens& statement, const QString& table, const QString& identity,
                         bool identityInsertOn) {
    if (statement.empty() || identity.isEmpty()) return;
    if (statement.front().IsWord(u"INSERT") && !identityInsertOn &&
        InsertColumns(statement).contains(identity, Qt::CaseInsensitive))
        ThrowStatementError(QStringLiteral("Cannot insert explicit value for identity column in "
                                           "table '%1' when IDENTITY_INSERT is set to OFF.")
                                .arg(table),
                            ado::kNativeIdentityInsertOff, QStringLiteral("23000"));
    if (!statement.front().IsWord(u"UPDATE")) return;
    // The column as the statement names it: PostgreSQL keeps names in lower case.
    for (const QString& column : UpdatedColumns(statement))
        if (column.compare(identity, Qt::CaseInsensitive) == 0)
            ThrowStatementError(QStringLiteral("Cannot update identity column '%1'.").arg(column),
                                ado::kNativeIdentityUpdate);
}

void CheckKeyColumnsNotNull(const Tokens& statement, const QString& table,
                            const TableColumns& columns) {
    for (const QString& name : AddedPrimaryKeyColumns(statement)) {
        const TableColumn* column = FindColumn(columns, name);
        if (column && !column->notNull)
            ThrowStatementError(QStringLiteral("Cannot define PRIMARY KEY constraint on nullable "
                                               "column in table '%1'.")
                                    .arg(table),
                                ado::kNativeNullableKeyColumn);
    }
}

} // namespace zlx::tsql
