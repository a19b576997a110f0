#include "platform/tsql/SqlServerTexts.h"

#include "platform/engines/SqlServerErrors.h"
#include "platform/engines/SqlServerMessages.h"
#include "platform/tsql/StatementTokens.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace zlx::tsql {

namespace {

using ado::SqlServerMessages;

// The first group of `pattern` in `text`; empty when it does not match.
QString Captured(const QString& text, const char* pattern) {
    const QRegularExpressionMatch match =
        QRegularExpression(QString::fromLatin1(pattern)).match(text);
    return match.hasMatch() ? match.captured(1) : QString();
}

// "main.t" or "t.a" as SQL Server names it: the last part.
QString LastPart(const QString& name) {
    return name.section(u'.', -1);
}

// The dotted name starting at `i` as written (dbo.t, t.ix); empty when no name starts there.
QString DottedName(const Tokens& statement, std::size_t i) {
    QString name;
    for (; i < statement.size(); ++i) {
        if (IsName(statement[i]))
            name += statement[i].text;
        else if (statement[i].IsSymbol(u"."))
            name += u'.';
        else
            break;
        if (i + 1 < statement.size() && !statement[i + 1].IsSymbol(u".") && IsName(statement[i]))
            break;
    }
    return name;
}

// The index of the first token after the words `words` at the start of the statement, each
// optional word in parentheses skipped when absent; 0 when the statement does not start so.
std::size_t After(const Tokens& statement, std::initializer_list<QStringView> words) {
    std::size_t i = 0;
    for (QStringView word : words) {
        const bool optional = word.startsWith(u'(');
        const QStringView bare = optional ? word.mid(1, word.size() - 2) : word;
        if (i < statement.size() && statement[i].IsWord(bare))
            ++i;
        else if (!optional)
            return 0;
    }
    return i;
}

// The name a CREATE makes (TABLE, VIEW, PROCEDURE, DATABASE, INDEX ...), without its schema.
QString CreatedName(const Tokens& statement) {
    static const QStringList kinds = {
        QStringLiteral("TABLE"),        QStringLiteral("VIEW"),     QStringLiteral("PROCEDURE"),
        QStringLiteral("PROC"),         QStringLiteral("FUNCTION"), QStringLiteral("DATABASE"),
        QStringLiteral("INDEX"),        QStringLiteral("UNIQUE"),   QStringLiteral("CLUSTERED"),
        QStringLiteral("NONCLUSTERED"), QStringLiteral("DEFAULT"),  QStringLiteral("TRIGGER")};
    std::size_t i = After(statement, {u"CREATE"});
    while (i > 0 && i < statement.size() && statement[i].kind == TokenKind::Word &&
           kinds.contains(statement[i].text, Qt::CaseInsensitive))
        ++i;
    return i > 0 ? LastPart(DottedName(statement, i)) : QString();
}

// CREATE [UNIQUE] [[NON]CLUSTERED] INDEX name ON table: the table.
QString IndexTable(const Tokens& statement) {
    for (std::size_t i = 0; i + 1 < statement.size(); ++i)
        if (statement[i].IsWord(u"ON")) return LastPart(DottedName(statement, i + 1));
    return QString();
}

// What DROP names, as SQL Server's 3701 calls it ("la tabla", "el índice"...), and the name.
QStringList DroppedObject(const Tokens& statement) {
    static const QStringList kinds = {
        QStringLiteral("TABLE"),     QStringLiteral("la tabla"),
        QStringLiteral("VIEW"),      QStringLiteral("la vista"),
        QStringLiteral("INDEX"),     QStringLiteral("el índice"),
        QStringLiteral("DATABASE"),  QStringLiteral("la base de datos"),
        QStringLiteral("PROCEDURE"), QStringLiteral("el procedimiento"),
        QStringLiteral("PROC"),      QStringLiteral("el procedimiento"),
        QStringLiteral("DEFAULT"),   QStringLiteral("el valor predeterminado")};
    if (statement.size() < 3 || !statement[0].IsWord(u"DROP")) return {};
    for (qsizetype k = 0; k < kinds.size(); k += 2)
        if (statement[1].IsWord(kinds[k])) return {kinds[k + 1], DottedName(statement, 2)};
    return {};
}

// PostgreSQL names types as "integer", "double precision"; SQL Server as int, float.
QString SqlServerTypeName(const QString& type) {
    if (type == u"integer") return QStringLiteral("int");
    if (type == u"double precision" || type == u"real") return QStringLiteral("float");
    return type;
}

QString NameNotFoundText(std::int32_t native, const QString& text) {
    QString name = Captured(text, "no such (?:table|column): (\\S+)");
    if (name.isEmpty()) name = Captured(text, "has no column named (\\S+)");
    if (name.isEmpty())
        name = Captured(
            text, "(?:relation|column) \"?([^\" ]+)\"?(?: of [^ ]+ \"[^\"]*\")? does not exist");
    return SqlServerMessages::Text(native, {native == ado::kNativeInvalidColumn
                                                ? LastPart(name)
                                                : name.remove(QStringLiteral("main."))});
}

QString NullText(const ado::ErrorRecord& record, const Tokens& statement, const QString& database) {
    QString column = Captured(record.description, "NOT NULL constraint failed: \\S+\\.(\\S+)");
    if (column.isEmpty())
        column = Captured(record.description, "null value in column \"([^\"]+)\"");
    QString table = TargetTable(statement);
    if (table.isEmpty()) table = Captured(record.description, "failed: (\\S+)\\.");
    return SqlServerMessages::Text(
        ado::kNativeNullNotAllowed,
        {column, database + QStringLiteral(".dbo.") + table, StatementKind(statement)});
}

QString ConflictText(const ado::ErrorRecord& record, const Tokens& statement,
                     const QString& database) {
    const QString& text = record.description;
    QString kind = QStringLiteral("CHECK"), table = TargetTable(statement);
    QString name = Captured(text, "check constraint \"([^\"]+)\"");
    if (name.isEmpty()) name = Captured(text, "CHECK constraint failed: (.+)$");
    if (text.contains(u"FOREIGN KEY") || text.contains(u"foreign key")) {
        name = Captured(text, "foreign key constraint \"([^\"]+)\"");
        kind = text.startsWith(u"update or delete") ? QStringLiteral("REFERENCE")
                                                    : QStringLiteral("FOREIGN KEY");
        const QString referring = Captured(text, "\" on table \"([^\"]+)\"");
        const QString referenced = Captured(record.detail, "is not present in table \"([^\"]+)\"");
        if (!referring.isEmpty()) table = referring;
        if (!referenced.isEmpty()) table = referenced;
    }
    return SqlServerMessages::Text(ado::kNativeConstraintConflict,
                                   {ConflictingStatementKind(statement), kind, name, database,
                                    QStringLiteral("dbo.") + table});
}

QString ConversionText(std::int32_t native, const QString& text) {
    const QString type = Captured(text, "for type ([a-z ]+):");
    const QString value = Captured(text, ": \"(.*)\"$");
    if (native == ado::kNativeValueConversion)
        return SqlServerMessages::Text(native,
                                       {QStringLiteral("varchar"), value, SqlServerTypeName(type)});
    return SqlServerMessages::Text(native, {QStringLiteral("varchar"), SqlServerTypeName(type)});
}

QString OverflowText(const QString& text) {
    QString type = Captured(text, "^(\\w+) out of range");
    if (type.isEmpty())
        type = text.contains(u"numeric") ? QStringLiteral("numeric") : QStringLiteral("bigint");
    return SqlServerMessages::Text(ado::kNativeArithmeticOverflow,
                                   {QStringLiteral("expresión"), SqlServerTypeName(type)});
}

QString DuplicateText(const ado::ErrorRecord& record, const Tokens& statement) {
    const QString name = Captured(record.description, "constraint \"([^\"]+)\"");
    const QString value = Captured(record.detail, "\\)=(\\(.*\\)) already exists");
    const bool primary = name.endsWith(u"_pkey") || name.startsWith(u"pk", Qt::CaseInsensitive);
    const QString table = TargetTable(statement);
    // An index's engine name is table_index; SQL Server names it by the index's own name.
    const QString prefix = table + u'_';
    const bool index = record.nativeError == ado::kNativeDuplicateIndexKey &&
                       name.startsWith(prefix, Qt::CaseInsensitive);
    return DuplicateKeyText(record.nativeError,
                            primary ? QStringLiteral("PRIMARY KEY") : QStringLiteral("UNIQUE KEY"),
                            index ? name.mid(prefix.size()) : name, table, value);
}

QString SyntaxText(const QString& text, const Tokens& statement) {
    QString near = Captured(text, "near \"([^\"]*)\"");
    if (near.isEmpty() && !statement.empty()) near = statement.back().text;
    return SqlServerMessages::Text(ado::kNativeSyntax, {near});
}

QString DeadlockText(const QString& detail) {
    QString process = Captured(detail, "^Process (\\d+) ");
    if (process.isEmpty()) process = QString::number(QCoreApplication::applicationPid());
    return SqlServerMessages::Text(ado::kNativeDeadlock, {process});
}

// The texts whose parts the statement names.
QString StatementText(std::int32_t native, const QString& text, const Tokens& statement) {
    switch (native) {
    case ado::kNativeObjectExists:
    case ado::kNativeDatabaseExists:
        return SqlServerMessages::Text(native, {CreatedName(statement)});
    case ado::kNativeIndexExists:
        return SqlServerMessages::Text(
            native, {CreatedName(statement), QStringLiteral("dbo.") + IndexTable(statement)});
    case ado::kNativeCannotDrop:
        return SqlServerMessages::Text(native, DroppedObject(statement));
    case ado::kNativeColumnExists: {
        QString column = Captured(text, "duplicate column name: (\\S+)");
        if (column.isEmpty()) column = Captured(text, "column \"([^\"]+)\"");
        return SqlServerMessages::Text(native, {column, TargetTable(statement)});
    }
    case ado::kNativeNotNullColumnAdded: {
        const std::size_t add = After(statement, {u"ALTER", u"TABLE"});
        std::size_t i = add;
        while (i > 0 && i < statement.size() && !statement[i].IsWord(u"ADD"))
            ++i;
        return SqlServerMessages::Text(native,
                                       {DottedName(statement, i + 1), TargetTable(statement)});
    }
    default:
        return QString();
    }
}

// A range check made by CREATE TABLE (zlx_220_k): the value and type are not in the message.
QString RangeCheckText(std::int32_t native, const QString& text) {
    const QString column = Captured(text, "zlx_\\d+_([^\" ]+)");
    if (native == ado::kNativeTruncation) return SqlServerMessages::Text(native);
    return QStringLiteral("Error de desbordamiento aritmético para el tipo de datos de la columna "
                          "'%1'.")
        .arg(column);
}

QString EngineText(const ado::ErrorRecord& record, const Tokens& statement,
                   const QString& database) {
    const std::int32_t native = record.nativeError;
    const QString& text = record.description;
    if (text.contains(QStringLiteral("zlx_%1_").arg(native))) return RangeCheckText(native, text);
    if (QString statementText = StatementText(native, text, statement); !statementText.isEmpty())
        return statementText;
    switch (native) {
    case ado::kNativeInvalidObject:
    case ado::kNativeInvalidColumn:
        return NameNotFoundText(native, text);
    case ado::kNativeAmbiguousColumn: {
        QString column = Captured(text, "ambiguous column name: (\\S+)");
        if (column.isEmpty()) column = Captured(text, "column reference \"([^\"]+)\"");
        return SqlServerMessages::Text(native, {LastPart(column)});
    }
    case ado::kNativeUnknownFunction: {
        QString function = Captured(text, "no such function: (\\S+)");
        if (function.isEmpty()) function = Captured(text, "function ([^(]+)\\(");
        return SqlServerMessages::Text(native, {function});
    }
    case ado::kNativeSyntax:
        return SyntaxText(text, statement);
    case ado::kNativeNullNotAllowed:
        return NullText(record, statement, database);
    case ado::kNativeConstraintConflict:
        return ConflictText(record, statement, database);
    case ado::kNativeDuplicateKey:
    case ado::kNativeDuplicateIndexKey:
        return record.source == u"PostgreSQL" ? DuplicateText(record, statement) : text;
    case ado::kNativeValueConversion:
    case ado::kNativeNumericConversion:
        return ConversionText(native, text);
    case ado::kNativeArithmeticOverflow:
        return OverflowText(text);
    case ado::kNativeDateOutOfRange:
        return SqlServerMessages::Text(native,
                                       {QStringLiteral("varchar"), QStringLiteral("datetime")});
    case ado::kNativeDeadlock:
        return DeadlockText(record.detail);
    case ado::kNativeDateConversion:
    case ado::kNativeMoreValuesThanColumns:
    case ado::kNativeSubqueryRows:
    case ado::kNativeDivideByZero:
    case ado::kNativeTruncation:
    case ado::kNativeInvalidFloat:
    case ado::kNativeInvalidSubstringLength:
        return SqlServerMessages::Text(native);
    default:
        return text;
    }
}

} // namespace

QString WithConflictColumn(const QString& text, const QString& column) {
    if (column.isEmpty() || !text.endsWith(u'.')) return text;
    return text.chopped(1) + QStringLiteral(", column '%1'.").arg(column);
}

QString TargetTable(const Tokens& statement) {
    std::size_t i = After(statement, {u"INSERT", u"(INTO)"});
    if (i == 0) i = After(statement, {u"UPDATE"});
    if (i == 0) i = After(statement, {u"DELETE", u"(FROM)"});
    if (i == 0) i = After(statement, {u"ALTER", u"TABLE"});
    return i > 0 ? LastPart(DottedName(statement, i)) : QString();
}

QString StatementKind(const Tokens& statement) {
    return statement.empty() || statement[0].IsWord(u"SELECT") ? QStringLiteral("INSERT")
                                                               : statement[0].text.toUpper();
}

QString ConflictingStatementKind(const Tokens& statement) {
    const QString kind = StatementKind(statement);
    return kind == u"ALTER" ? QStringLiteral("ALTER TABLE") : kind;
}

QString SqlServerDescription(const ado::ErrorRecord& record, const Tokens& statement,
                             const QString& database) {
    // What the layer refuses to translate (SQLite's identity row id among it) keeps its words.
    if (record.description.startsWith(u"Construcción T-SQL no soportada"))
        return record.description;
    const QString reworded = SqlServerMessages::FromEnglish(record.nativeError, record.description);
    return reworded != record.description ? reworded : EngineText(record, statement, database);
}

QString DuplicateKeyText(std::int32_t native, const QString& kind, const QString& name,
                         const QString& table, const QString& value) {
    const QString object = QStringLiteral("dbo.") + table;
    return native == ado::kNativeDuplicateKey
               ? SqlServerMessages::Text(native, {kind, name, object, value})
               : SqlServerMessages::Text(native, {object, name, value});
}

} // namespace zlx::tsql
