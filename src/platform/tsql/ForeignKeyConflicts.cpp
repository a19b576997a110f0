#include "platform/tsql/ForeignKeyConflicts.h"

#include "platform/engines/SqlServerMessages.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/ConstraintNames.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/SqlServerTexts.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QRegularExpression>
#include <algorithm>

namespace zlx::tsql {
namespace {

constexpr std::int32_t kNativeReferencedDrop = 3726;
constexpr std::int32_t kNativeReferencedTruncate = 4712;

bool IsForeignKeyFailure(const ado::ErrorRecord& record) {
    return record.sqlState == u"23503" ||
           record.description.contains(u"FOREIGN KEY constraint failed");
}

bool SameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// The names of the parenthesised list that opens at or after `from`.
QStringList NamesInParentheses(const Tokens& statement, std::size_t from) {
    QStringList names;
    while (from < statement.size() && !statement[from].IsSymbol(u"("))
        ++from;
    for (++from; from < statement.size() && !statement[from].IsSymbol(u")"); ++from)
        if (IsName(statement[from])) names << statement[from].text;
    return names;
}

// ALTER TABLE t ADD CONSTRAINT name FOREIGN KEY (a) REFERENCES p [(b)] (an unnamed key named as
// the layer names it): the key it adds, which no catalog holds when adding it failed.
std::optional<ForeignKey> AddedKey(const Tokens& statement, const QString& table) {
    if (statement.size() < 8 || !statement[0].IsWord(u"ALTER") || !statement[3].IsWord(u"ADD") ||
        !statement[4].IsWord(u"CONSTRAINT") || !statement[6].IsWord(u"FOREIGN"))
        return std::nullopt;
    ForeignKey key{statement[5].text, table, NamesInParentheses(statement, 7), {}, {}};
    const auto references = std::find_if(statement.begin(), statement.end(),
                                         [](const Token& t) { return t.IsWord(u"REFERENCES"); });
    std::size_t at = static_cast<std::size_t>(references - statement.begin()) + 1;
    // The table's last part: dbo.p names p.
    while (at + 2 < statement.size() && statement[at + 1].IsSymbol(u"."))
        at += 2;
    if (at >= statement.size()) return std::nullopt;
    key.referenced = statement[at].text;
    if (at + 1 < statement.size() && statement[at + 1].IsSymbol(u"("))
        key.referencedColumns = NamesInParentheses(statement, at + 1);
    return key;
}

// Whether the statement writes the referring side of `key` (a row of `table` that needs its
// parent); otherwise it changed or removed a referenced row.
bool WritesReferringSide(const ForeignKey& key, const Tokens& statement, const QString& table) {
    if (!SameName(key.table, table) || statement.front().IsWord(u"DELETE")) return false;
    if (!statement.front().IsWord(u"UPDATE")) return true;
    const QStringList updated = UpdatedColumns(statement);
    return std::any_of(key.columns.begin(), key.columns.end(), [&](const QString& column) {
        return updated.contains(column, Qt::CaseInsensitive);
    });
}

std::optional<ForeignKey> FailedKey(const ado::ErrorRecord& record, const Tokens& statement,
                                    const QString& table, EngineDialect& dialect) {
    if (auto added = AddedKey(WithConstraintsNamed(statement), table)) return added;
    static const QRegularExpression named(QStringLiteral("foreign key constraint \"([^\"]+)\""));
    const QString engineName = named.match(record.description).captured(1);
    const std::vector<ForeignKey> keys = dialect.ForeignKeysAround(table);
    const auto found = std::find_if(keys.begin(), keys.end(), [&](const ForeignKey& key) {
        if (!engineName.isEmpty()) return SameName(key.name, engineName);
        return WritesReferringSide(key, statement, table) || SameName(key.referenced, table);
    });
    if (found == keys.end()) return std::nullopt;
    return *found;
}

QString ConflictText(const ForeignKey& key, const Tokens& statement, const QString& table,
                     const QString& database) {
    const bool referring =
        WritesReferringSide(key, statement, table) || statement.front().IsWord(u"ALTER");
    const QString kind = ConflictingStatementKind(statement);
    const QStringList& columns = referring ? key.referencedColumns : key.columns;
    const QString text = ado::SqlServerMessages::Text(
        ado::kNativeConstraintConflict,
        {kind, referring ? QStringLiteral("FOREIGN KEY") : QStringLiteral("REFERENCE"), key.name,
         database, QStringLiteral("dbo.") + (referring ? key.referenced : key.table)});
    return WithConflictColumn(text, columns.size() == 1 ? columns.front() : QString());
}

} // namespace

ado::AdoError WithForeignKeyNamed(const ado::AdoError& error, const Tokens& statement,
                                  EngineDialect& dialect, const QString& database) {
    if (error.Records().empty() || statement.empty() ||
        !IsForeignKeyFailure(error.Records().front()))
        return error;
    const QString table = TargetTable(statement);
    if (table.isEmpty()) return error;
    std::optional<ForeignKey> key;
    try {
        key = FailedKey(error.Records().front(), statement, table, dialect);
    } catch (const ado::AdoError&) {
        // a transaction the failure aborted reads no catalog: the engine's message tells
    }
    if (!key) return error;
    return StatementError(ConflictText(*key, statement, table, database),
                          ado::kNativeConstraintConflict, QStringLiteral("23000"));
}

void RefuseReferencedTable(const Tokens& statement, EngineDialect& dialect) {
    const bool drops = StartsWith(statement, {u"DROP", u"TABLE"});
    if (!drops && !StartsWith(statement, {u"TRUNCATE", u"TABLE"})) return;
    // The name as written (dbo.t), its last part the table's.
    const std::size_t start = drops && statement.size() > 4 && statement[2].IsWord(u"IF") &&
                                      statement[3].IsWord(u"EXISTS")
                                  ? 4
                                  : 2;
    std::size_t end = start;
    QString written;
    while (end < statement.size() &&
           (statement[end].IsSymbol(u".") ||
            (IsName(statement[end]) && (end == start || statement[end - 1].IsSymbol(u".")))))
        written += statement[end++].text;
    const QString table = end > start ? statement[end - 1].text : QString();
    // A #temporary table is referenced by none.
    if (table.isEmpty() || table.startsWith(u'#')) return;
    for (const ForeignKey& key : dialect.ForeignKeysAround(
             TokensToSql(Tokens(statement.begin() + start, statement.begin() + end)).trimmed())) {
        if (!SameName(key.referenced, table) || SameName(key.table, table)) continue;
        if (drops)
            ThrowStatementError(QStringLiteral("Could not drop object '%1' because it is "
                                               "referenced by a FOREIGN KEY constraint.")
                                    .arg(written),
                                kNativeReferencedDrop, QStringLiteral("42000"));
        ThrowStatementError(QStringLiteral("Cannot truncate table '%1' because it is being "
                                           "referenced by a FOREIGN KEY constraint.")
                                .arg(written),
                            kNativeReferencedTruncate, QStringLiteral("42000"));
    }
}

} // namespace zlx::tsql
