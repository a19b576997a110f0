#include "platform/tsql/SqliteTableRebuild.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TypeNames.h"

#include <QScopeGuard>
#include <QStringList>
#include <algorithm>

namespace zlx::tsql {
namespace {

bool IsConstraintStart(const Token& token) {
    static const QStringList words = {
        QStringLiteral("NOT"),        QStringLiteral("NULL"),       QStringLiteral("DEFAULT"),
        QStringLiteral("CONSTRAINT"), QStringLiteral("PRIMARY"),    QStringLiteral("UNIQUE"),
        QStringLiteral("CHECK"),      QStringLiteral("REFERENCES"), QStringLiteral("COLLATE")};
    return token.kind == TokenKind::Word && words.contains(token.text, Qt::CaseInsensitive);
}

// Where the default's value ends: one token, a signed number or a parenthesised expression.
size_t DefaultValueEnd(const Tokens& definition, size_t value) {
    if (value >= definition.size()) return value;
    if (definition[value].IsSymbol(u"-") || definition[value].IsSymbol(u"+")) return value + 2;
    if (!definition[value].IsSymbol(u"(")) return value + 1;
    int depth = 0;
    for (size_t i = value; i < definition.size(); ++i) {
        if (definition[i].IsSymbol(u"("))
            ++depth;
        else if (definition[i].IsSymbol(u")") && --depth == 0)
            return i + 1;
    }
    return definition.size();
}

// Where the column's default begins, with its name (CONSTRAINT name DEFAULT x); the end when it
// has none.
size_t DefaultStart(const Tokens& definition) {
    for (size_t i = 0; i < definition.size(); ++i) {
        if (definition[i].IsWord(u"DEFAULT"))
            return i >= 2 && definition[i - 2].IsWord(u"CONSTRAINT") ? i - 2 : i;
    }
    return definition.size();
}

void RemoveDefault(Tokens& definition) {
    const size_t start = DefaultStart(definition);
    if (start == definition.size()) return;
    const size_t value = definition[start].IsWord(u"CONSTRAINT") ? start + 3 : start + 1;
    definition.erase(definition.begin() + start,
                     definition.begin() + DefaultValueEnd(definition, value));
}

// Takes off the checks named zlx_<number>_... that held the old type's limits.
void RemoveLimitChecks(Tokens& definition) {
    for (size_t i = 0; i + 3 < definition.size();) {
        if (!definition[i].IsWord(u"CONSTRAINT") || !definition[i + 1].text.startsWith(u"zlx_") ||
            !definition[i + 2].IsWord(u"CHECK")) {
            ++i;
            continue;
        }
        definition.erase(definition.begin() + i,
                         definition.begin() + DefaultValueEnd(definition, i + 3));
    }
}

// The column's NOT NULL or NULL (not a DEFAULT NULL).
void RemoveNullability(Tokens& definition) {
    for (size_t i = 1; i < definition.size();) {
        const bool notNull = definition[i].IsWord(u"NOT") && i + 1 < definition.size() &&
                             definition[i + 1].IsWord(u"NULL");
        const bool null = definition[i].IsWord(u"NULL") && !definition[i - 1].IsWord(u"DEFAULT");
        if (notNull || null)
            definition.erase(definition.begin() + i, definition.begin() + i + (notNull ? 2 : 1));
        else
            ++i;
    }
}

// Where a column's constraint that begins at `start` (CONSTRAINT name ...) ends: at the next
// constraint of the column or at its end.
size_t ConstraintEnd(const Tokens& definition, size_t start) {
    int depth = 0;
    for (size_t i = start + 3; i < definition.size(); ++i) {
        if (definition[i].IsSymbol(u"("))
            ++depth;
        else if (definition[i].IsSymbol(u")"))
            --depth;
        else if (depth == 0 && IsConstraintStart(definition[i]))
            return i;
    }
    return definition.size();
}

// Takes the constraint `name` out of a column's or the table's definition; false when it has
// none of that name. A table constraint leaves the whole piece empty.
bool RemoveNamedConstraint(Tokens& definition, const QString& name) {
    for (size_t i = 0; i + 2 < definition.size(); ++i) {
        if (!definition[i].IsWord(u"CONSTRAINT") ||
            definition[i + 1].text.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        definition.erase(definition.begin() + i,
                         definition.begin() +
                             (i == 0 ? definition.size() : ConstraintEnd(definition, i)));
        return true;
    }
    return false;
}

Tokens WithLeadingBlank(Tokens tokens) {
    if (!tokens.empty()) tokens.front().leading = QStringLiteral(" ");
    return tokens;
}

} // namespace

std::vector<Tokens> SqliteTableRebuild::DefinitionPieces(const QString& created) {
    const Tokens tokens = Tokenize(created);
    size_t open = 0;
    while (open < tokens.size() && !tokens[open].IsSymbol(u"("))
        ++open;
    std::vector<Tokens> pieces(1);
    int depth = 0;
    for (size_t close = open + 1; close < tokens.size(); ++close) {
        const Token& token = tokens[close];
        if (token.IsSymbol(u"("))
            ++depth;
        else if (token.IsSymbol(u")") && depth-- == 0)
            break;
        if (depth == 0 && token.IsSymbol(u",")) {
            pieces.emplace_back();
            continue;
        }
        pieces.back().push_back(token);
    }
    return pieces;
}

SqliteTableRebuild::SqliteTableRebuild(Runner run, QString schema, QString table)
    : m_run(std::move(run)), m_schema(std::move(schema)), m_table(std::move(table)) {}

void SqliteTableRebuild::ChangeType(const QString& column, const QString& type,
                                    const QString& check) {
    RebuildColumn(column, [&](Tokens& definition) {
        size_t end = 1;
        while (end < definition.size() && !IsConstraintStart(definition[end]))
            ++end;
        definition.erase(definition.begin() + 1, definition.begin() + end);
        Tokens typeTokens = WithLeadingBlank(Tokenize(type));
        // ALTER COLUMN c type NULL (or NOT NULL) replaces the column's nullability.
        if (!typeTokens.empty() && typeTokens.back().IsWord(u"NULL")) RemoveNullability(definition);
        const bool collated = std::any_of(definition.begin(), definition.end(),
                                          [](const Token& t) { return t.IsWord(u"COLLATE"); });
        const bool text = !typeTokens.empty() && typeTokens.front().kind == TokenKind::Word &&
                          IsTextType(typeTokens.front().text.toUpper());
        if (!collated && text) {
            const Tokens collation = WithLeadingBlank(Tokenize(QStringLiteral("COLLATE NOCASE")));
            typeTokens.insert(typeTokens.end(), collation.begin(), collation.end());
        }
        definition.insert(definition.begin() + 1, typeTokens.begin(), typeTokens.end());
        RemoveLimitChecks(definition);
        if (!check.isEmpty()) {
            const Tokens clause = WithLeadingBlank(Tokenize(check));
            definition.insert(definition.end(), clause.begin(), clause.end());
        }
    });
}

void SqliteTableRebuild::ChangeDefault(const QString& column, const QString& value) {
    RebuildColumn(column, [&](Tokens& definition) {
        RemoveDefault(definition);
        if (!value.isEmpty()) {
            const Tokens clause = WithLeadingBlank(Tokenize(QStringLiteral("DEFAULT ") + value));
            definition.insert(definition.end(), clause.begin(), clause.end());
        }
    });
}

void SqliteTableRebuild::NameDefault(const QString& column, const QString& name) {
    if (ColumnOfDefault(name).compare(column, Qt::CaseInsensitive) == 0) return;
    RebuildColumn(column, [&](Tokens& definition) {
        const size_t start = DefaultStart(definition);
        if (start == definition.size() || definition[start].IsWord(u"CONSTRAINT")) return;
        const Tokens named = WithLeadingBlank(Tokenize(QStringLiteral("CONSTRAINT ") + name));
        definition.insert(definition.begin() + static_cast<std::ptrdiff_t>(start), named.begin(),
                          named.end());
        definition[start + named.size()].leading = QStringLiteral(" ");
    });
}

QString SqliteTableRebuild::ColumnOfDefault(const QString& name) {
    for (const Tokens& piece : DefinitionPieces(CreatedSql())) {
        const size_t start = DefaultStart(piece);
        if (start + 1 < piece.size() && piece[start].IsWord(u"CONSTRAINT") &&
            piece[start + 1].text.compare(name, Qt::CaseInsensitive) == 0)
            return piece.front().text;
    }
    return {};
}

QString SqliteTableRebuild::CreatedSql() {
    const QStringList created =
        m_run(QStringLiteral("SELECT sql FROM %1.sqlite_master WHERE type = 'table' AND name = %2 "
                             "COLLATE NOCASE")
                  .arg(m_schema, SqlString(m_table)));
    if (created.isEmpty())
        ThrowStatementError(QStringLiteral("Invalid object name '%1'.").arg(m_table),
                            ado::kNativeInvalidObject, QStringLiteral("42S02"));
    return created.front();
}

void SqliteTableRebuild::AddConstraint(const QString& constraint) {
    Rebuild([&](std::vector<Tokens>& pieces) { pieces.push_back(Tokenize(constraint)); });
}

bool SqliteTableRebuild::DropConstraint(const QString& name) {
    bool found = false;
    for (Tokens piece : DefinitionPieces(CreatedSql()))
        found = found || RemoveNamedConstraint(piece, name);
    if (!found) return false;
    Rebuild([&](std::vector<Tokens>& pieces) {
        for (Tokens& piece : pieces)
            RemoveNamedConstraint(piece, name);
        std::erase_if(pieces, [](const Tokens& piece) { return piece.empty(); });
    });
    return true;
}

void SqliteTableRebuild::RebuildColumn(const QString& column,
                                       const std::function<void(Tokens& definition)>& change) {
    // The column may come as the engine writes it, "quoted".
    const QString bare = column.size() > 1 && column.startsWith(u'"') && column.endsWith(u'"')
                             ? column.mid(1, column.size() - 2).replace(u"\"\""_qs, u"\""_qs)
                             : column;
    Rebuild([&](std::vector<Tokens>& pieces) {
        bool found = false;
        for (Tokens& piece : pieces) {
            if (!piece.empty() && piece.front().text.compare(bare, Qt::CaseInsensitive) == 0 &&
                (piece.front().kind == TokenKind::Word ||
                 piece.front().kind == TokenKind::QuotedName)) {
                change(piece);
                found = true;
            }
        }
        if (!found)
            ThrowStatementError(QStringLiteral("Invalid column name '%1'.").arg(column),
                                ado::kNativeInvalidColumn, QStringLiteral("42S22"));
    });
}

// Dropping the old table would delete its rows first, which the FOREIGN KEY constraints of
// the tables referencing it would refuse or pass on to them (ON DELETE CASCADE): they are
// switched off while the table is made again. Inside a transaction SQLite keeps them on, and a
// table referenced by another is refused there.
bool SqliteTableRebuild::SwitchForeignKeysOff() {
    if (m_run(QStringLiteral("PRAGMA foreign_keys")).value(0) != u"1") return false;
    m_run(QStringLiteral("PRAGMA foreign_keys = OFF"));
    if (m_run(QStringLiteral("PRAGMA foreign_keys")).value(0) != u"1") return true;
    const QStringList referring = m_run(
        QStringLiteral("SELECT m.name FROM \"%1\".sqlite_master m, pragma_foreign_key_list(m.name, "
                       "'%1') f WHERE m.type = 'table' AND f.\"table\" = %2 COLLATE NOCASE AND "
                       "m.name <> %2 COLLATE NOCASE")
            .arg(m_schema, SqlString(m_table)));
    if (!referring.isEmpty())
        ThrowUnsupported(QStringLiteral("ALTER TABLE %1 en una transacción (FOREIGN KEY de %2)")
                             .arg(m_table, referring.front()));
    return false;
}

// The rows copied must hold the new table's FOREIGN KEY constraints (SQL Server checks them
// when ALTER TABLE adds one).
void SqliteTableRebuild::CheckForeignKeys() {
    if (!m_run(QStringLiteral("PRAGMA \"%1\".foreign_key_check(zlx_rebuild)").arg(m_schema))
             .isEmpty())
        ThrowStatementError(QStringLiteral("FOREIGN KEY constraint failed"),
                            ado::kNativeConstraintConflict, QStringLiteral("23000"));
}

void SqliteTableRebuild::Rebuild(const std::function<void(std::vector<Tokens>& pieces)>& change) {
    const QString master = m_schema + QStringLiteral(".sqlite_master");
    const QString created = CreatedSql();
    const QStringList indexes =
        m_run(QStringLiteral("SELECT sql FROM %1 WHERE type = 'index' AND tbl_name = %2 COLLATE "
                             "NOCASE AND sql IS NOT NULL")
                  .arg(master, SqlString(m_table)));
    const bool counted = created.contains(u"AUTOINCREMENT", Qt::CaseInsensitive);
    const QStringList sequence =
        counted ? m_run(QStringLiteral(
                            "SELECT seq FROM %1.sqlite_sequence WHERE name = %2 COLLATE NOCASE")
                            .arg(m_schema, SqlString(m_table)))
                : QStringList();
    std::vector<Tokens> pieces = DefinitionPieces(created);
    change(pieces);
    QStringList definitions;
    for (const Tokens& piece : pieces)
        definitions << TokensToSql(piece).trimmed();

    const QString rebuilt = m_schema + QStringLiteral(".zlx_rebuild");
    const QString table = m_schema + u'.' + m_table;
    const bool keysOff = SwitchForeignKeysOff();
    const auto keysBack = qScopeGuard([&] {
        try {
            if (keysOff) m_run(QStringLiteral("PRAGMA foreign_keys = ON"));
        } catch (...) {
            // the link is gone: a new connection switches them on
        }
    });
    m_run(QStringLiteral("SAVEPOINT zlx_rebuild"));
    m_run(QStringLiteral("CREATE TABLE %1 (%2)")
              .arg(rebuilt, definitions.join(QStringLiteral(", "))));
    try {
        m_run(QStringLiteral("INSERT INTO %1 SELECT * FROM %2").arg(rebuilt, table));
        CheckForeignKeys();
    } catch (...) {
        // The rows do not fit the new definition (a NULL where NOT NULL now stands, a key
        // without its referenced row): the table stays as it was.
        m_run(QStringLiteral("ROLLBACK TO zlx_rebuild"));
        m_run(QStringLiteral("RELEASE zlx_rebuild"));
        throw;
    }
    m_run(QStringLiteral("DROP TABLE %1").arg(table));
    m_run(QStringLiteral("ALTER TABLE %1 RENAME TO \"%2\"").arg(rebuilt, m_table));
    for (const QString& index : indexes) {
        // "CREATE [UNIQUE] INDEX name ON t (...)": the index goes back into the table's schema.
        Tokens indexTokens = Tokenize(index);
        for (size_t i = 0; i + 1 < indexTokens.size(); ++i) {
            if (indexTokens[i].IsWord(u"INDEX")) {
                Token& name = indexTokens[i + 1];
                name = Token{TokenKind::Symbol, m_schema + QStringLiteral(".\"") + name.text + u'"',
                             name.leading};
                break;
            }
        }
        m_run(TokensToSql(indexTokens));
    }
    if (!sequence.isEmpty()) {
        m_run(QStringLiteral("DELETE FROM %1.sqlite_sequence WHERE name = %2")
                  .arg(m_schema, SqlString(m_table)));
        m_run(QStringLiteral("INSERT INTO %1.sqlite_sequence (name, seq) VALUES (%2, %3)")
                  .arg(m_schema, SqlString(m_table), sequence.front()));
    }
    m_run(QStringLiteral("RELEASE zlx_rebuild"));
}

} // namespace zlx::tsql
