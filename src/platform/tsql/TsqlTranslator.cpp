#include "platform/tsql/TsqlTranslator.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlDateFunctions.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TypeNames.h"
#include "platform/variant/ZlxAssert.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>
#include <algorithm>
#include <limits>
#include <map>

namespace zlx::tsql {
namespace {

Token Raw(const QString& text, const QString& leading = QString()) {
    return Token{TokenKind::Symbol, text, leading};
}

bool IsTextFunction(const Token& token) {
    static const QStringList names = {
        QStringLiteral("RTRIM"), QStringLiteral("LTRIM"),     QStringLiteral("RIGHT"),
        QStringLiteral("LEFT"),  QStringLiteral("SUBSTRING"), QStringLiteral("UPPER"),
        QStringLiteral("LOWER"), QStringLiteral("REPLACE"),   QStringLiteral("STR")};
    return token.kind == TokenKind::Word && names.contains(token.text, Qt::CaseInsensitive);
}

QString QuoteString(const QString& value) {
    QString doubled = value;
    doubled.replace(u'\'', QStringLiteral("''"));
    return u'\'' + doubled + u'\'';
}

const EngineDialect& DialectOf(const TranslationContext& context) {
    ZLX_ASSERT(context.dialect, "a translation names its engine's dialect");
    return *context.dialect;
}

// Translates one statement; holds the tokens it edits.
class Rewriter {
public:
    Rewriter(const TranslationContext& context, Tokens tokens)
        : m_context(context), m_dialect(DialectOf(context)), m_t(std::move(tokens)) {}

    Translation Run() {
        PrepareDefinitions();
        PrepareWriteTop();
        PrepareDeleteJoin();
        PrepareUpdateJoin();
        PrepareDefaultValues();
        PrepareStoredDecimals();
        Translation translation;
        const size_t index = IndexKeyword();
        translation.sql = index ? IndexDefinition(index) : Range(0, m_t.size());
        translation.exclusiveTables = m_exclusive;
        translation.databases = m_databases;
        translation.identityStart = m_identityStart;
        return translation;
    }

private:
    const Token* At(size_t i) const { return i < m_t.size() ? &m_t[i] : nullptr; }
    bool WordAt(size_t i, QStringView w) const { return At(i) && At(i)->IsWord(w); }
    bool SymbolAt(size_t i, QStringView s) const { return At(i) && At(i)->IsSymbol(s); }
    bool IsDdl() const {
        return (WordAt(0, u"CREATE") || WordAt(0, u"ALTER")) && WordAt(1, u"TABLE");
    }

    // Index of the ")" that closes the "(" at `open`.
    size_t Close(size_t open) const {
        int depth = 0;
        for (size_t i = open; i < m_t.size(); ++i) {
            if (m_t[i].IsSymbol(u"("))
                ++depth;
            else if (m_t[i].IsSymbol(u")") && --depth == 0)
                return i;
        }
        ThrowStatementError(QStringLiteral("Incorrect syntax near '('."), ado::kNativeSyntax);
    }

    // Top-level comma positions between `open` and its closing parenthesis.
    std::vector<size_t> Commas(size_t open, size_t close) const {
        std::vector<size_t> commas;
        int depth = 0;
        for (size_t i = open + 1; i < close; ++i) {
            if (m_t[i].IsSymbol(u"("))
                ++depth;
            else if (m_t[i].IsSymbol(u")"))
                --depth;
            else if (depth == 0 && m_t[i].IsSymbol(u","))
                commas.push_back(i);
        }
        return commas;
    }

    // IDENTITY(1,1) and Jet's AUTOINCREMENT columns become each engine's own identity.
    void PrepareDefinitions() {
        if (!IsDdl()) return;
        for (size_t i = 0; i < m_t.size(); ++i) {
            AddColumnCheck(i);
            if (IsTextColumnType(i)) {
                CollateWithoutCase(i);
            } else if (m_t[i].IsWord(u"DEFAULT") && At(i + 1) &&
                       At(i + 1)->Is(TokenKind::Number, u"0") && IsDateColumnBefore(i)) {
                // A date column's default 0 is the date numbered 0.
                m_t[i + 1].kind = TokenKind::String;
                m_t[i + 1].text = m_context.jetDates ? QStringLiteral("1899-12-30 00:00:00")
                                                     : QStringLiteral("1900-01-01 00:00:00");
            } else if (m_t[i].IsWord(u"DEFAULT") && WordAt(i + 1, u"GETDATE") &&
                       SymbolAt(i + 2, u"(")) {
                // A call as a column's default goes in parentheses, which SQLite requires.
                m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(Close(i + 2)) + 1,
                           Raw(QStringLiteral(")")));
                m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                           Raw(QStringLiteral("("), m_t[i + 1].leading));
                m_t[i + 2].leading.clear();
            } else if (m_t[i].IsWord(u"IDENTITY") && SymbolAt(i + 1, u"(")) {
                const size_t close = Close(i + 1);
                const QString arguments =
                    TokensToSql(Tokens(m_t.begin() + i + 2, m_t.begin() + close)).simplified();
                const QStringList parts = QString(arguments).remove(u' ').split(u',');
                bool seedOk = false, stepOk = false;
                const qint64 seed = parts.value(0).toLongLong(&seedOk);
                const qint64 step = parts.value(1).toLongLong(&stepOk);
                const IdentitySpelling identity = parts.size() == 2 && seedOk && stepOk && step != 0
                                                      ? m_dialect.Identity(seed, step)
                                                      : IdentitySpelling();
                if (identity.text.isEmpty())
                    ThrowUnsupported(QStringLiteral("IDENTITY(") + arguments + u')');
                m_t.erase(m_t.begin() + i + 1, m_t.begin() + close + 1);
                if (identity.integerKey) {
                    RetypeAsInteger(i);
                    i -= DropColumnPrimaryKey(i);
                }
                m_t[i] = Raw(identity.text, m_t[i].leading);
                m_identityStart = identity.start;
            } else if (m_t[i].IsWord(u"AUTOINCREMENT")) {
                m_t[i] = Raw(m_dialect.Autoincrement(), m_t[i].leading);
                if (m_dialect.MarksAutoincrementKey()) MarkAutoincrementKey(i);
            }
        }
    }

    // A column type the engine does not hold to SQL Server's limits (a text's length, an
    // integer's range) gets the engine's check after it. Not on ALTER COLUMN, nor on an identity.
    void AddColumnCheck(size_t type) {
        if (WordAt(3, u"ALTER") || type == 0 || m_t[type].kind != TokenKind::Word) return;
        if (WordAt(0, u"ALTER") && !m_dialect.ChecksAddedColumns()) return;
        const Token& column = m_t[type - 1];
        if ((column.kind != TokenKind::Word && column.kind != TokenKind::QuotedName) ||
            column.IsWord(u"AS") || column.IsWord(u"TABLE") || column.IsWord(u"COLUMN"))
            return;
        size_t end = type + 1;
        if (SymbolAt(end, u"(")) end = Close(end) + 1;
        const auto [first, last] = ColumnDefinitionAround(type);
        for (size_t j = first; j < last; ++j)
            if (m_t[j].IsWord(u"IDENTITY")) return;
        const QString typeText =
            TokensToSql(Tokens(m_t.begin() + type, m_t.begin() + end)).simplified().toUpper();
        const QString check = m_dialect.ColumnCheck(
            column.kind == TokenKind::QuotedName ? m_dialect.QuoteName(column.text) : column.text,
            typeText);
        if (!check.isEmpty())
            m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(end),
                       Raw(check, QStringLiteral(" ")));
    }

    // Whether the column definition that `i` is part of has a date type.
    bool IsDateColumnBefore(size_t i) const {
        for (size_t j = i; j-- > 0;) {
            if (m_t[j].IsSymbol(u",") || m_t[j].IsSymbol(u"(") || m_t[j].IsWord(u"ADD")) break;
            if (m_t[j].IsWord(u"DATETIME") || m_t[j].IsWord(u"SMALLDATETIME") ||
                m_t[j].IsWord(u"DATE"))
                return true;
        }
        return false;
    }

    // A text type right after a column's name (not a CAST's type).
    bool IsTextColumnType(size_t i) const {
        static const QStringList types = {QStringLiteral("CHAR"),  QStringLiteral("VARCHAR"),
                                          QStringLiteral("NCHAR"), QStringLiteral("NVARCHAR"),
                                          QStringLiteral("TEXT"),  QStringLiteral("NTEXT")};
        if (m_t[i].kind != TokenKind::Word || i == 0 ||
            !types.contains(m_t[i].text, Qt::CaseInsensitive))
            return false;
        const Token& previous = m_t[i - 1];
        return (previous.kind == TokenKind::Word || previous.kind == TokenKind::QuotedName) &&
               !previous.IsWord(u"AS") && !previous.IsWord(u"TABLE");
    }

    // Text columns compare without regard to case, as in SQL Server's default collation.
    void CollateWithoutCase(size_t type) {
        size_t end = type + 1;
        if (SymbolAt(end, u"(")) end = Close(end) + 1;
        if (WordAt(end, u"COLLATE")) return;
        m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(end),
                   Raw(m_dialect.CaseInsensitiveCollation(), QStringLiteral(" ")));
    }

    void RetypeAsInteger(size_t identity) {
        for (size_t j = identity; j-- > 0;) {
            if (m_t[j].IsWord(u"INT") || m_t[j].IsWord(u"BIGINT") || m_t[j].IsWord(u"SMALLINT") ||
                m_t[j].IsWord(u"INTEGER")) {
                m_t[j].text = QStringLiteral("INTEGER");
                return;
            }
        }
    }

    // An identity spelled as the engine's integer key already makes its column the primary
    // key, so a PRIMARY KEY [CLUSTERED|NONCLUSTERED] written in the same column definition
    // goes. Answers how many tokens before `identity` were removed.
    size_t DropColumnPrimaryKey(size_t identity) {
        const auto [first, last] = ColumnDefinitionAround(identity);
        for (size_t j = first; j + 1 < last; ++j) {
            if (j == identity || !m_t[j].IsWord(u"PRIMARY") || !m_t[j + 1].IsWord(u"KEY")) continue;
            size_t end = j + 2;
            if (end < last && (m_t[end].IsWord(u"CLUSTERED") || m_t[end].IsWord(u"NONCLUSTERED")))
                ++end;
            m_t.erase(m_t.begin() + j, m_t.begin() + end);
            return j < identity ? end - j : 0;
        }
        return 0;
    }

    // The tokens [first, last) of the column definition holding token `i`: up to the comma or
    // parenthesis that closes it at its own depth.
    std::pair<size_t, size_t> ColumnDefinitionAround(size_t i) const {
        size_t first = i;
        for (int depth = 0; first > 0; --first) {
            const Token& t = m_t[first - 1];
            if (t.IsSymbol(u")"))
                ++depth;
            else if (t.IsSymbol(u"(") && depth-- == 0)
                break;
            else if (t.IsSymbol(u",") && depth == 0)
                break;
        }
        size_t last = i + 1;
        for (int depth = 0; last < m_t.size(); ++last) {
            const Token& t = m_t[last];
            if (t.IsSymbol(u"("))
                ++depth;
            else if (t.IsSymbol(u")") && depth-- == 0)
                break;
            else if (t.IsSymbol(u",") && depth == 0)
                break;
        }
        return {first, last};
    }

    void MarkAutoincrementKey(size_t from) {
        for (size_t j = from; j + 1 < m_t.size(); ++j) {
            if (m_t[j].IsWord(u"PRIMARY") && m_t[j + 1].IsWord(u"KEY")) {
                m_t[j + 1].text = QStringLiteral("KEY AUTOINCREMENT");
                return;
            }
        }
    }

    // The position of INDEX in CREATE [UNIQUE] [[NON]CLUSTERED] INDEX i ON t; 0 for any other
    // statement.
    size_t IndexKeyword() const {
        if (!WordAt(0, u"CREATE")) return 0;
        size_t k = 1;
        if (WordAt(k, u"UNIQUE")) ++k;
        if (WordAt(k, u"CLUSTERED") || WordAt(k, u"NONCLUSTERED")) ++k;
        return WordAt(k, u"INDEX") && WordAt(k + 2, u"ON") ? k : 0;
    }

    // The index gets its engine name; some engines write the schema of a table in another
    // database on the index, not on the table.
    QString IndexDefinition(size_t index) {
        const size_t name = index + 1;
        const size_t table = index + 3;
        size_t open = table;
        while (open < m_t.size() && !m_t[open].IsSymbol(u"("))
            ++open;
        if (open == table || open == m_t.size())
            return Range(0, m_t.size()); // malformed: left to the engine
        QString engineTable = Range(table, open).trimmed();
        QString schema;
        const qsizetype dot = engineTable.lastIndexOf(u'.');
        if (m_dialect.SchemaOnIndexName() && dot >= 0) {
            schema = engineTable.left(dot + 1);
            engineTable = engineTable.mid(dot + 1);
        }
        QString indexName = EngineIndexName(m_t[open - 1].text, m_t[name].text);
        if (m_t[name].kind == TokenKind::QuotedName || m_t[open - 1].kind == TokenKind::QuotedName)
            indexName = m_dialect.QuoteName(indexName);
        // The keys are ordered as ORDER BY orders them, so that the engine can read in the
        // index's order.
        const size_t close = Close(open);
        QString keys;
        EmitOrderedItems(open + 1, close, keys);
        return Range(0, name) + m_t[name].leading + schema + indexName + QStringLiteral(" ON ") +
               engineTable + m_t[open].leading + m_t[open].text + keys + Range(close, m_t.size());
    }

    // Without DEFAULT inside VALUES, the column and its value leave the list so that the
    // column takes its default.
    void PrepareDefaultValues() {
        if (m_dialect.HasDefaultValues() || !WordAt(0, u"INSERT")) return;
        size_t values = 0;
        while (values < m_t.size() && !m_t[values].IsWord(u"VALUES"))
            ++values;
        if (values == m_t.size() || !SymbolAt(values + 1, u"(")) return;
        const size_t valuesClose = Close(values + 1);
        auto valueCommas = Commas(values + 1, valuesClose);
        std::vector<std::pair<size_t, size_t>> items = Items(values + 1, valuesClose, valueCommas);
        std::vector<size_t> defaults;
        for (size_t k = 0; k < items.size(); ++k) {
            if (items[k].second - items[k].first == 1 && m_t[items[k].first].IsWord(u"DEFAULT"))
                defaults.push_back(k);
        }
        if (defaults.empty()) return;
        size_t columnsOpen = 0;
        while (columnsOpen < values && !m_t[columnsOpen].IsSymbol(u"("))
            ++columnsOpen;
        if (columnsOpen == values)
            ThrowUnsupported(QStringLiteral("DEFAULT en VALUES sin lista de columnas"));
        const size_t columnsClose = Close(columnsOpen);
        auto columnItems = Items(columnsOpen, columnsClose, Commas(columnsOpen, columnsClose));
        if (columnItems.size() != items.size()) return; // the engine reports the mismatch
        if (defaults.size() == items.size()) {
            // Every value is DEFAULT: the whole row takes its defaults.
            Tokens rebuilt(m_t.begin(), m_t.begin() + columnsOpen);
            rebuilt.push_back(Raw(QStringLiteral("DEFAULT VALUES"), u" "_qs));
            rebuilt.insert(rebuilt.end(), m_t.begin() + valuesClose + 1, m_t.end());
            m_t = std::move(rebuilt);
            return;
        }
        RemoveItems(items, defaults); // later in the text first
        RemoveItems(columnItems, defaults);
    }

    // DELETE TOP (n) [FROM] t [WHERE c] and UPDATE TOP (n) t SET ... [WHERE c] change the
    // first n rows the engine finds, picked by its row locator in a subquery.
    void PrepareWriteTop() {
        const bool isDelete = WordAt(0, u"DELETE");
        if (!(isDelete || WordAt(0, u"UPDATE")) || !WordAt(1, u"TOP")) return;
        size_t next = 3;
        QString count;
        if (SymbolAt(2, u"(")) {
            next = Close(2) + 1;
            count = TokensToSql(Tokens(m_t.begin() + 3, m_t.begin() + next - 1)).trimmed();
        } else if (At(2) && At(2)->kind == TokenKind::Number) {
            count = m_t[2].text;
        } else {
            ThrowStatementError(QStringLiteral("Incorrect syntax near 'TOP'."), ado::kNativeSyntax);
        }
        if (WordAt(next, u"PERCENT")) ThrowUnsupported(QStringLiteral("TOP ... PERCENT"));
        if (isDelete && WordAt(next, u"FROM")) ++next;
        const size_t tableEnd = QualifiedNameEnd(next);
        size_t where = tableEnd;
        for (int depth = 0; where < m_t.size() && !(depth == 0 && m_t[where].IsWord(u"WHERE"));
             ++where) {
            if (m_t[where].IsSymbol(u"("))
                ++depth;
            else if (m_t[where].IsSymbol(u")"))
                --depth;
            else if (depth == 0 && (m_t[where].IsWord(u"FROM") || m_t[where].IsWord(u"JOIN")))
                ThrowUnsupported(m_t[0].text.toUpper() + QStringLiteral(" TOP con FROM"));
        }
        if (tableEnd == next)
            ThrowStatementError(QStringLiteral("Incorrect syntax near 'TOP'."), ado::kNativeSyntax);
        const auto word = [](const char* text) {
            return Token{TokenKind::Word, QString::fromLatin1(text), QStringLiteral(" ")};
        };
        const Token locator = Raw(m_dialect.RowLocator(), QStringLiteral(" "));
        const Tokens table(m_t.begin() + next, m_t.begin() + tableEnd);
        Tokens rebuilt{m_t[0]};
        if (isDelete) rebuilt.push_back(word("FROM"));
        rebuilt.insert(rebuilt.end(), table.begin(), table.end());
        if (!isDelete) rebuilt.insert(rebuilt.end(), m_t.begin() + tableEnd, m_t.begin() + where);
        for (const Token& token :
             {word("WHERE"), locator, word("IN"), Raw(QStringLiteral("("), u" "_qs), word("SELECT"),
              locator, word("FROM")})
            rebuilt.push_back(token);
        // The subquery names the table as the DELETE did, alias included.
        rebuilt.insert(rebuilt.end(), m_t.begin() + next,
                       m_t.begin() + (isDelete ? where : tableEnd));
        rebuilt.insert(rebuilt.end(), m_t.begin() + where, m_t.end());
        rebuilt.push_back(Raw(QStringLiteral(" LIMIT ") + count));
        rebuilt.push_back(Raw(QStringLiteral(")")));
        m_t = std::move(rebuilt);
    }

    // DELETE [FROM] x FROM t x JOIN u ON ... [WHERE c]: the rows of t that the query picks,
    // by the engine's row locator.
    void PrepareDeleteJoin() {
        if (!WordAt(0, u"DELETE")) return;
        const size_t target = WordAt(1, u"FROM") ? 2 : 1;
        const size_t targetEnd = QualifiedNameEnd(target);
        if (targetEnd != target + 1 || !WordAt(targetEnd, u"FROM")) return;
        const size_t table = TableOfAlias(targetEnd + 1, m_t[target].text);
        const auto word = [](const char* text) {
            return Token{TokenKind::Word, QString::fromLatin1(text), QStringLiteral(" ")};
        };
        Token qualifier = m_t[target];
        qualifier.leading = QStringLiteral(" ");
        Token tableName = m_t[table];
        tableName.leading = QStringLiteral(" ");
        Tokens rebuilt{m_t[0],
                       word("FROM"),
                       tableName,
                       word("WHERE"),
                       Raw(m_dialect.RowLocator(), QStringLiteral(" ")),
                       word("IN"),
                       Raw(QStringLiteral("("), QStringLiteral(" ")),
                       word("SELECT"),
                       qualifier,
                       Raw(QStringLiteral(".")),
                       Raw(m_dialect.RowLocator())};
        rebuilt.insert(rebuilt.end(), m_t.begin() + targetEnd, m_t.end());
        rebuilt.push_back(Raw(QStringLiteral(")")));
        m_t = std::move(rebuilt);
    }

    // UPDATE x SET ... FROM t [AS] x [INNER] JOIN u ON c ... [WHERE w], x the first table or
    // its alias: UPDATE t [AS x] SET ... FROM u, ... WHERE (c) AND ... AND (w), the form both
    // engines take. Outer joins have no such form.
    void PrepareUpdateJoin() {
        if (!WordAt(0, u"UPDATE") || QualifiedNameEnd(1) != 2 || !WordAt(2, u"SET")) return;
        const size_t from = DepthZeroWord(3, u"FROM");
        if (from == m_t.size()) return;
        const size_t where = DepthZeroWord(from, u"WHERE");
        const size_t table = from + 1;
        if (QualifiedNameEnd(table) != table + 1)
            ThrowUnsupported(QStringLiteral("UPDATE ... FROM"));
        size_t next = table + 1;
        if (WordAt(next, u"AS")) ++next;
        const bool aliased = At(next) && IsName(*At(next)) && !IsClauseWord(*At(next));
        const Token& named = aliased ? m_t[next] : m_t[table];
        if (named.text.compare(m_t[1].text, Qt::CaseInsensitive) != 0)
            ThrowUnsupported(QStringLiteral("UPDATE ... FROM sin la tabla actualizada"));
        if (aliased) ++next;
        Tokens joined, conditions;
        while (next < where) {
            if (WordAt(next, u"INNER")) ++next;
            if (!WordAt(next, u"JOIN"))
                ThrowUnsupported(QStringLiteral("UPDATE ... FROM ... ") + m_t[next].text);
            const size_t on = DepthZeroWord(next, u"ON");
            size_t end = on + 1;
            for (int depth = 0; end < where; ++end) {
                if (m_t[end].IsSymbol(u"("))
                    ++depth;
                else if (m_t[end].IsSymbol(u")"))
                    --depth;
                else if (depth == 0 && IsJoinStart(end))
                    break;
            }
            if (on >= where) ThrowUnsupported(QStringLiteral("UPDATE ... JOIN sin ON"));
            if (!joined.empty()) joined.push_back(Raw(QStringLiteral(",")));
            joined.insert(joined.end(), m_t.begin() + next + 1, m_t.begin() + on);
            AppendCondition(conditions, on + 1, end);
            next = end;
        }
        if (where < m_t.size()) AppendCondition(conditions, where + 1, m_t.size());
        Tokens rebuilt{m_t[0], m_t[table]};
        rebuilt[1].leading = QStringLiteral(" ");
        if (aliased) {
            rebuilt.push_back(Token{TokenKind::Word, QStringLiteral("AS"), QStringLiteral(" ")});
            rebuilt.push_back(m_t[1]);
        }
        for (size_t k = 2; k < from; ++k) {
            // SET x.c = ...: the engines name the column alone.
            if (SymbolAt(k + 1, u".") && At(k + 2) && IsName(m_t[k + 2]) && SymbolAt(k + 3, u"=") &&
                (m_t[k - 1].IsWord(u"SET") || m_t[k - 1].IsSymbol(u","))) {
                Token column = m_t[k + 2];
                column.leading = m_t[k].leading;
                rebuilt.push_back(column);
                k += 2;
                continue;
            }
            rebuilt.push_back(m_t[k]);
        }
        if (!joined.empty()) {
            rebuilt.push_back(Token{TokenKind::Word, QStringLiteral("FROM"), QStringLiteral(" ")});
            rebuilt.insert(rebuilt.end(), joined.begin(), joined.end());
        }
        if (!conditions.empty()) {
            rebuilt.push_back(Token{TokenKind::Word, QStringLiteral("WHERE"), QStringLiteral(" ")});
            rebuilt.insert(rebuilt.end(), conditions.begin(), conditions.end());
        }
        m_t = std::move(rebuilt);
    }

    // (condition) joined to those before it by AND.
    void AppendCondition(Tokens& conditions, size_t first, size_t last) const {
        if (!conditions.empty())
            conditions.push_back(
                Token{TokenKind::Word, QStringLiteral("AND"), QStringLiteral(" ")});
        conditions.push_back(Raw(QStringLiteral("("), QStringLiteral(" ")));
        conditions.insert(conditions.end(), m_t.begin() + first, m_t.begin() + last);
        conditions.push_back(Raw(QStringLiteral(")")));
    }

    bool IsJoinStart(size_t i) const {
        for (QStringView word : {u"JOIN", u"INNER", u"LEFT", u"RIGHT", u"FULL", u"CROSS"})
            if (WordAt(i, word)) return true;
        return SymbolAt(i, u",");
    }

    // The first `word` at parenthesis depth 0 from `from` on; the end when there is none.
    size_t DepthZeroWord(size_t from, QStringView word) const {
        for (int depth = 0; from < m_t.size(); ++from) {
            if (m_t[from].IsSymbol(u"("))
                ++depth;
            else if (m_t[from].IsSymbol(u")"))
                --depth;
            else if (depth == 0 && m_t[from].IsWord(word))
                return from;
        }
        return from;
    }

    // The table of the FROM clause starting at `from` that `alias` names: "t x", "t AS x", or t
    // itself.
    size_t TableOfAlias(size_t from, const QString& alias) const {
        for (size_t k = from; k < m_t.size(); ++k) {
            if (!IsName(m_t[k]) || m_t[k].text.compare(alias, Qt::CaseInsensitive) != 0) continue;
            const size_t before = k > from && m_t[k - 1].IsWord(u"AS") ? k - 1 : k;
            if (before > from && IsName(m_t[before - 1]) && !IsClauseWord(m_t[before - 1]))
                return before - 1;
            return k;
        }
        ThrowUnsupported(QStringLiteral("DELETE ") + alias + QStringLiteral(" FROM"));
    }

    static bool IsClauseWord(const Token& token) {
        for (QStringView word : {u"FROM", u"JOIN", u"ON", u"WHERE", u"INNER", u"OUTER", u"LEFT",
                                 u"RIGHT", u"CROSS", u"AND", u"OR"})
            if (token.IsWord(word)) return true;
        return false;
    }

    // Where the possibly qualified name (t, [t], db..t, db.dbo.t) that begins at `name` ends;
    // `name` itself when there is none.
    size_t QualifiedNameEnd(size_t name) const {
        if (!At(name) || !IsName(*At(name))) return name;
        size_t end = name + 1;
        while (SymbolAt(end, u".")) {
            ++end;
            if (At(end) && IsName(*At(end))) ++end;
        }
        return end;
    }

    // On an engine whose numeric columns keep any number, what an INSERT's VALUES or an
    // UPDATE's SET list stores in a DECIMAL or MONEY column is rounded to the column's scale
    // (and held to its precision) by the engine's function.
    void PrepareStoredDecimals() {
        const bool insert = WordAt(0, u"INSERT");
        if (!m_context.tableColumns || (!insert && !WordAt(0, u"UPDATE")) ||
            m_dialect.ScaledDecimal(QStringLiteral("x"), 1, 0).isEmpty())
            return;
        m_target = StoreTarget(insert);
        if (std::none_of(m_target->columns.begin(), m_target->columns.end(),
                         [](const TableColumn& c) { return DecimalType(c.type).has_value(); }))
            return;
        const std::vector<StoredItem> items = insert ? InsertedItems() : SetItems();
        for (auto item = items.rbegin(); item != items.rend(); ++item) {
            const TableColumn* column = FindColumn(m_target->columns, item->column);
            const auto digits = column ? DecimalType(column->type) : std::nullopt;
            // DEFAULT stays as written; a blank text is StoredText's.
            const Token& value = m_t[item->first];
            const bool single = item->last == item->first + 1;
            if (!digits ||
                (single && (value.IsWord(u"DEFAULT") ||
                            (value.kind == TokenKind::String && value.text.trimmed().isEmpty()))))
                continue;
            const QString call =
                m_dialect.ScaledDecimal(QStringLiteral("\x01"), digits->precision, digits->scale);
            m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(item->last),
                       Raw(call.section(u'\x01', 1)));
            m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(item->first),
                       Raw(call.section(u'\x01', 0, 0), m_t[item->first].leading));
            m_t[item->first + 1].leading.clear();
        }
    }

    // A value stored by an INSERT or UPDATE: tokens [first, last) going into `column`.
    struct StoredItem {
        size_t first;
        size_t last;
        QString column;
    };

    // The values of each row of VALUES, with the column each goes into.
    std::vector<StoredItem> InsertedItems() const {
        std::vector<StoredItem> items;
        for (size_t open = DepthZeroWord(0, u"VALUES") + 1; SymbolAt(open, u"("); open += 2) {
            const size_t close = Close(open);
            size_t position = 0;
            for (const auto& [first, last] : Items(open, close, Commas(open, close))) {
                const QString column =
                    m_target->listed ? m_target->listed->value(static_cast<qsizetype>(position))
                    : position < m_target->columns.size() ? m_target->columns[position].name
                                                          : QString();
                if (last > first) items.push_back({first, last, column});
                ++position;
            }
            open = close;
            if (!SymbolAt(open + 1, u",")) break;
        }
        return items;
    }

    // The c = value items of an UPDATE's SET list.
    std::vector<StoredItem> SetItems() const {
        std::vector<StoredItem> items;
        size_t first = DepthZeroWord(0, u"SET") + 1;
        for (size_t i = first, depth = 0; i <= m_t.size(); ++i) {
            const bool end = i == m_t.size() ||
                             (depth == 0 && (m_t[i].IsSymbol(u",") || m_t[i].IsWord(u"WHERE") ||
                                             m_t[i].IsWord(u"FROM") || m_t[i].IsWord(u"OPTION")));
            if (end) {
                if (i > first + 2 && m_t[first + 1].IsSymbol(u"=") && IsName(m_t[first]))
                    items.push_back({first + 2, i, m_t[first].text});
                if (i == m_t.size() || !m_t[i].IsSymbol(u",")) break;
                first = i + 1;
            } else if (m_t[i].IsSymbol(u"(")) {
                ++depth;
            } else if (m_t[i].IsSymbol(u")")) {
                --depth;
            }
        }
        return items;
    }

    std::vector<std::pair<size_t, size_t>> Items(size_t open, size_t close,
                                                 const std::vector<size_t>& commas) const {
        std::vector<std::pair<size_t, size_t>> items;
        size_t start = open + 1;
        for (size_t comma : commas) {
            items.emplace_back(start, comma);
            start = comma + 1;
        }
        items.emplace_back(start, close);
        return items;
    }

    void RemoveItems(const std::vector<std::pair<size_t, size_t>>& items,
                     const std::vector<size_t>& which) {
        for (auto k = which.rbegin(); k != which.rend(); ++k) {
            // Remove the item with the comma before it (or after it, for the first item).
            const auto [first, end] = items[*k];
            const size_t from = *k == 0 ? first : first - 1;
            const size_t to = *k == 0 ? end + 1 : end;
            m_t.erase(m_t.begin() + from, m_t.begin() + to);
        }
    }

    QString Range(size_t begin, size_t end) {
        QString out;
        std::multimap<size_t, QString> limits; // " LIMIT n" written before the token at the key
        for (size_t i = begin; i < end;) {
            for (auto [from, to] = limits.equal_range(i); from != to; ++from)
                out += from->second;
            limits.erase(i);
            i = Emit(i, end, out, limits);
        }
        for (auto [from, to] = limits.equal_range(end); from != to; ++from)
            out += from->second;
        return out;
    }

    // Writes the token at `i` (and whatever construct starts there); returns the next index.
    size_t Emit(size_t i, size_t end, QString& out, std::multimap<size_t, QString>& limits) {
        const Token& t = m_t[i];
        switch (t.kind) {
        case TokenKind::QuotedName:
        case TokenKind::Word:
            return EmitName(i, end, out, limits);
        case TokenKind::String: {
            if (const Token* number = NumberOperandBeside(i)) {
                out += t.leading + TextAsNumber(t.text, *number);
                return i + 1;
            }
            if (const QString stored = StoredText(i); !stored.isEmpty()) {
                out += t.leading + stored;
                return i + 1;
            }
            const QString iso = NormalizedDateLiteral(t.text, m_context.dayMonthYear);
            out += t.leading + QuoteString(!iso.isEmpty()           ? iso
                                           : DropsTrailingBlanks(i) ? WithoutTrailingBlanks(t.text)
                                                                    : t.text);
            // Two literals compared have no column to give them the database collation.
            if ((IsComparison(i + 1) && At(i + 2) && At(i + 2)->kind == TokenKind::String) ||
                (WordAt(i + 1, u"IN") && SymbolAt(i + 2, u"(") && At(i + 3) &&
                 At(i + 3)->kind == TokenKind::String))
                out += u' ' + m_dialect.CaseInsensitiveCollation();
            return i + 1;
        }
        case TokenKind::Global:
            out += t.leading + GlobalValue(t.text);
            return i + 1;
        case TokenKind::Variable:
            ThrowUnsupported(QStringLiteral("variable ") + t.text);
        case TokenKind::Symbol:
            if (t.IsSymbol(u"+") && IsConcatenation(i)) {
                out += t.leading + QStringLiteral("||");
                return i + 1;
            }
            if ((t.IsSymbol(u"/") || t.IsSymbol(u"%")) && !m_dialect.CheckedDivisor({}).isEmpty())
                return EmitCheckedDivisor(i, out);
            if (t.IsSymbol(u"(") && IsTableHint(i + 1) && i > 0 &&
                (m_t[i - 1].kind == TokenKind::Word || m_t[i - 1].kind == TokenKind::QuotedName))
                return SkipBareHints(i);
            out += t.leading + t.text;
            return i + 1;
        case TokenKind::Number:
            if (IsBinaryLiteral(t)) {
                out += t.leading + m_dialect.BinaryLiteral(HexDigits(t.text));
                return i + 1;
            }
            CheckIntegerLiterals(i);
            break;
        }
        out += t.leading + t.text;
        return i + 1;
    }

    static bool IsBinaryLiteral(const Token& number) {
        return number.text.startsWith(u"0x", Qt::CaseInsensitive);
    }

    // The digits of 0x... as whole bytes: an odd count gets a leading zero, as SQL Server
    // reads 0x123 as 0x0123.
    static QString HexDigits(const QString& literal) {
        const QString digits = literal.mid(2).toLower();
        return digits.size() % 2 ? u'0' + digits : digits;
    }

    // On an engine whose comparisons count trailing blanks, a string literal loses them where
    // it is compared (an operand of =, <>, <, >, <= or >=) or stored (a whole value of VALUES
    // or of an UPDATE's SET list), so that stored texts and the texts compared with them
    // differ as on SQL Server.
    bool DropsTrailingBlanks(size_t i) const {
        if (!m_dialect.TrailingBlanksCount()) return false;
        if (InSetList(i)) return IsWholeSetValue(i);
        return IsComparison(i - 1) || IsComparison(i + 1) || IsInsertedValue(i);
    }

    bool IsInsertedValue(size_t i) const {
        if (!WordAt(0, u"INSERT") || !(SymbolAt(i - 1, u"(") || SymbolAt(i - 1, u",")) ||
            !(SymbolAt(i + 1, u")") || SymbolAt(i + 1, u",")))
            return false;
        size_t open = i;
        for (int depth = 0; open-- > 0;) {
            if (m_t[open].IsSymbol(u")"))
                ++depth;
            else if (m_t[open].IsSymbol(u"(") && depth-- == 0)
                break;
        }
        return open > 0 && open < i && (WordAt(open - 1, u"VALUES") || SymbolAt(open - 1, u","));
    }

    // A text stored in a column of another type, converted as SQL Server converts it; empty
    // when the literal is written as it is.
    QString StoredText(size_t i) {
        const QString& text = m_t[i].text;
        const bool blank = text.trimmed().isEmpty();
        const QString word = text.trimmed().toUpper();
        const bool truth = word == u"TRUE" || word == u"FALSE";
        if (!m_context.tableColumns) return {};
        const std::optional<ColumnKind> kind = StoredColumnKind(i);
        if (!kind) return {};
        if (blank) return BlankAs(*kind);
        // An integer column takes a text of an integer only ('12.5' is error 245).
        if (*kind == ColumnKind::Integer) {
            RequireIntegerText(text);
            return text.trimmed();
        }
        // A BIT takes the words TRUE and FALSE.
        if (truth && *kind == ColumnKind::Bit)
            return word == u"TRUE" ? QStringLiteral("1") : QStringLiteral("0");
        // A text of a date's shape that is no date (30/02/2024) is refused as SQL Server does.
        if (*kind == ColumnKind::Date && HasDateShape(text) &&
            NormalizedDateLiteral(text, m_context.dayMonthYear).isEmpty())
            return DateWriter().CastLiteral(CallArgument{QuoteString(text), true, text},
                                            QStringLiteral("DATETIME"));
        return {};
    }

    // 'yyyymmdd' or a text with slashes that begins with a digit: what NormalizedDateLiteral
    // reads when it is a possible date.
    static bool HasDateShape(const QString& text) {
        return !text.isEmpty() && text[0].isDigit() &&
               (text.contains(u'/') || (text.size() >= 8 && text.left(8).toLongLong() > 0));
    }

    // A blank text is 0 in a number column and the date numbered 0 in a date column; a
    // DECIMAL has no such reading. Empty: the text stays a text.
    QString BlankAs(ColumnKind kind) const {
        switch (kind) {
        case ColumnKind::Integer:
        case ColumnKind::Bit:
        case ColumnKind::Float:
        case ColumnKind::Money:
            return QStringLiteral("0");
        case ColumnKind::Decimal:
            ThrowStatementError(QStringLiteral("Error converting data type varchar to numeric."),
                                ado::kNativeNumericConversion, QStringLiteral("22018"));
        case ColumnKind::Date:
            return m_dialect.DateLiteral(QuoteString(m_context.jetDates
                                                         ? QStringLiteral("1899-12-30 00:00:00")
                                                         : QStringLiteral("1900-01-01 00:00:00")));
        case ColumnKind::Text:
        case ColumnKind::Other:
            break;
        }
        return {};
    }

    // The kind of the column that the literal at `i` is stored in: a whole value of an
    // INSERT's VALUES or of an UPDATE's SET list. nullopt for any other literal.
    std::optional<ColumnKind> StoredColumnKind(size_t i) {
        const bool inserted = IsInsertedValue(i);
        if (!inserted && !(IsWholeSetValue(i) && i >= 2 && IsName(m_t[i - 2]))) return std::nullopt;
        // The target's columns are looked up once per statement.
        if (!m_target) m_target = StoreTarget(inserted);
        QString column;
        if (!inserted) {
            column = m_t[i - 2].text;
        } else {
            const size_t position = ValuePosition(i);
            if (!m_target->listed.has_value()) {
                if (position >= m_target->columns.size()) return std::nullopt;
                return m_target->columns[position].kind;
            }
            if (position >= static_cast<size_t>(m_target->listed->size())) return std::nullopt;
            column = m_target->listed->at(static_cast<qsizetype>(position));
        }
        const TableColumn* found = FindColumn(m_target->columns, column);
        return found ? std::optional(found->kind) : std::nullopt;
    }

    // The table an INSERT or UPDATE stores in, with an INSERT's column list when it has one.
    struct StoreTargetColumns {
        TableColumns columns;
        std::optional<QStringList> listed;
    };

    StoreTargetColumns StoreTarget(bool insert) const {
        const size_t name = insert && WordAt(1, u"INTO") ? 2 : 1;
        const size_t end = QualifiedNameEnd(name);
        StoreTargetColumns target;
        if (end == name) return target;
        target.columns = m_context.tableColumns(
            TokensToSql(Tokens(m_t.begin() + name, m_t.begin() + end)).trimmed());
        if (insert && SymbolAt(end, u"(")) target.listed = ColumnList(end);
        return target;
    }

    static bool IsName(const Token& token) {
        return token.kind == TokenKind::Word || token.kind == TokenKind::QuotedName;
    }

    // The place of the value at `i` in its VALUES row, counting from 0.
    size_t ValuePosition(size_t i) const {
        size_t position = 0;
        for (int depth = 0; i-- > 0;) {
            if (m_t[i].IsSymbol(u")"))
                ++depth;
            else if (m_t[i].IsSymbol(u"(") && depth-- == 0)
                break;
            else if (depth == 0 && m_t[i].IsSymbol(u","))
                ++position;
        }
        return position;
    }

    // The column names of the list in parentheses at `open` (t.c names c).
    QStringList ColumnList(size_t open) const {
        QStringList names;
        const size_t close = Close(open);
        for (const auto& [first, last] : Items(open, close, Commas(open, close)))
            names << (last > first ? m_t[last - 1].text : QString());
        return names;
    }

    // A whole value of an UPDATE's SET list: c = <literal> followed by a comma, WHERE, FROM or
    // the end.
    bool IsWholeSetValue(size_t i) const {
        return InSetList(i) && SymbolAt(i - 1, u"=") &&
               (!At(i + 1) || SymbolAt(i + 1, u",") || WordAt(i + 1, u"WHERE") ||
                WordAt(i + 1, u"FROM"));
    }

    bool IsComparison(size_t i) const {
        static const QStringList comparisons = {u"="_qs, u"<>"_qs, u"!="_qs, u"<"_qs,
                                                u">"_qs, u"<="_qs, u">="_qs};
        const Token* token = At(i); // i may have wrapped round from 0 - 1: At answers nullptr
        return token && token->kind == TokenKind::Symbol && comparisons.contains(token->text);
    }

    bool InSetList(size_t i) const {
        if (!WordAt(0, u"UPDATE")) return false;
        bool inSet = false;
        for (size_t j = 0; j < i; ++j) {
            if (m_t[j].IsWord(u"SET"))
                inSet = true;
            else if (m_t[j].IsWord(u"WHERE") || m_t[j].IsWord(u"FROM"))
                inSet = false;
        }
        return inSet;
    }

    static QString WithoutTrailingBlanks(const QString& text) {
        qsizetype size = text.size();
        while (size > 0 && text[size - 1] == u' ')
            --size;
        return text.left(size);
    }

    QString GlobalValue(const QString& name) const {
        const QString value =
            m_context.globalValue ? m_context.globalValue(name.toUpper()) : QString();
        if (value.isEmpty()) ThrowUnsupported(name);
        return value;
    }

    // A "+" joins text when a neighbour is a string literal, a text function's result or a
    // text column.
    // The number that the text literal at `i` is an operand with (in '10' + 5, 5 * '2'), if
    // any: the text then takes the number's type, as data-type precedence says.
    const Token* NumberOperandBeside(size_t i) const {
        static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs, u"/"_qs, u"%"_qs};
        const auto isNumber = [](const Token* token) {
            return token && token->kind == TokenKind::Number && !IsBinaryLiteral(*token);
        };
        const auto isOperator = [&](size_t k) {
            return At(k) && At(k)->kind == TokenKind::Symbol && operators.contains(At(k)->text);
        };
        if (i >= 2 && isOperator(i - 1) && isNumber(At(i - 2))) return At(i - 2);
        if (isOperator(i + 1) && isNumber(At(i + 2))) return At(i + 2);
        return nullptr;
    }

    bool IsTextWithNumber(size_t i) const {
        return At(i) && At(i)->kind == TokenKind::String && NumberOperandBeside(i);
    }

    // 2147483647 + 1, 100000 * 100000: arithmetic of INT literals that leaves the INT range is
    // SQL Server's error 8115 (the engines compute in 64 bits). `i` may begin such a chain.
    void CheckIntegerLiterals(size_t i) const {
        static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs};
        const auto isOperator = [&](size_t k) {
            return At(k) && At(k)->kind == TokenKind::Symbol && operators.contains(At(k)->text);
        };
        if (!isOperator(i + 1) ||
            (i > 0 && (isOperator(i - 1) || SymbolAt(i - 1, u"/") || SymbolAt(i - 1, u"%"))))
            return;
        std::vector<qint64> terms; // the chain's sum, its products worked out first
        qint64 product = 0;
        QChar sign = u'+';
        size_t k = i;
        for (;; k += 2) {
            bool integer = false;
            const qint64 value =
                At(k) && At(k)->kind == TokenKind::Number && !IsBinaryLiteral(*At(k))
                    ? At(k)->text.toLongLong(&integer)
                    : 0;
            if (!integer || value > std::numeric_limits<std::int32_t>::max()) return;
            product = k == i || !SymbolAt(k - 1, u"*") ? value : CheckedInt(product * value);
            const bool productEnds = !SymbolAt(k + 1, u"*");
            if (productEnds) {
                terms.push_back(sign == u'-' ? -product : product);
                if (!isOperator(k + 1)) break;
                sign = m_t[k + 1].text[0];
            }
            if (SymbolAt(k + 2, u"(") || SymbolAt(k + 2, u".")) return;
        }
        // A division or modulo of the last literal binds first: the chain is no sum of these.
        if (SymbolAt(k + 1, u"/") || SymbolAt(k + 1, u"%")) return;
        qint64 sum = 0;
        for (const qint64 term : terms)
            sum = CheckedInt(sum + term);
    }

    static qint64 CheckedInt(qint64 value) {
        if (value > std::numeric_limits<std::int32_t>::max() ||
            value < std::numeric_limits<std::int32_t>::min())
            ThrowStatementError(QStringLiteral("Arithmetic overflow error converting expression to "
                                               "data type int."),
                                ado::kNativeArithmeticOverflow, QStringLiteral("22003"));
        return value;
    }

    // A text that must read as an integer; SQL Server's error 245 when it does not.
    static void RequireIntegerText(const QString& text) {
        static const QRegularExpression integer(QStringLiteral(R"(^\s*[+-]?\d+\s*$)"));
        if (!integer.match(text).hasMatch())
            ThrowStatementError(QStringLiteral("Conversion failed when converting the varchar "
                                               "value '%1' to data type int.")
                                    .arg(text),
                                ado::kNativeValueConversion, QStringLiteral("22018"));
    }

    // A text literal as a number of the type of `number`; SQL Server's error when it is none.
    static QString TextAsNumber(const QString& text, const Token& number) {
        static const QRegularExpression decimal(
            QStringLiteral(R"(^\s*[+-]?(\d+\.?\d*|\.\d+)\s*$)"));
        const bool integral = !number.text.contains(u'.') && !number.text.contains(u'e') &&
                              !number.text.contains(u'E');
        if (integral && text.trimmed().isEmpty()) return QStringLiteral("0");
        if (integral) RequireIntegerText(text);
        if (!integral && !decimal.match(text).hasMatch())
            ThrowStatementError(QStringLiteral("Error converting data type varchar to numeric."),
                                ado::kNativeNumericConversion, QStringLiteral("22018"));
        return text.trimmed();
    }

    // a / b and a % b: the divisor checked for zero by the engine's function.
    size_t EmitCheckedDivisor(size_t i, QString& out) {
        const size_t end = PrimaryEnd(i + 1);
        if (end == i + 1) {
            out += m_t[i].leading + m_t[i].text;
            return i + 1;
        }
        out += m_t[i].leading + m_t[i].text + m_t[i + 1].leading +
               m_dialect.CheckedDivisor(Range(i + 1, end).trimmed());
        return end;
    }

    bool IsConcatenation(size_t plus) const {
        if ((plus > 0 && IsTextWithNumber(plus - 1)) || IsTextWithNumber(plus + 1)) return false;
        const Token* next = At(plus + 1);
        if (next &&
            (next->kind == TokenKind::String || IsTextFunction(*next) || IsTextCast(plus + 1)))
            return true;
        // The column of a following t.column is two tokens further on.
        if (IsTextColumnName(SymbolAt(plus + 2, u".") ? plus + 3 : plus + 1)) return true;
        if (plus == 0) return false;
        const Token& previous = m_t[plus - 1];
        if (previous.kind == TokenKind::String || IsTextColumnName(plus - 1)) return true;
        if (!previous.IsSymbol(u")")) return false;
        for (size_t j = plus - 1; j-- > 0;) {
            if (m_t[j].IsSymbol(u"(") && Close(j) == plus - 1)
                return j > 0 && (IsTextFunction(m_t[j - 1]) || IsTextCast(j - 1));
        }
        return false;
    }

    // The end of the operand that begins at `i`: a literal, a (qualified) name, a function
    // call or a parenthesised expression; `i` itself when there is none.
    size_t PrimaryEnd(size_t i) const {
        const Token* first = At(i);
        if (!first) return i;
        if (first->IsSymbol(u"(")) return Close(i) + 1;
        if (first->kind == TokenKind::String || first->kind == TokenKind::Number) return i + 1;
        if (first->kind != TokenKind::Word && first->kind != TokenKind::QuotedName) return i;
        if (SymbolAt(i + 1, u"(")) return Close(i + 1) + 1;
        size_t end = i + 1;
        while (SymbolAt(end, u".") && At(end + 1) && !At(end + 1)->IsSymbol(u"."))
            end += 2;
        return end;
    }

    // The end of the expression that begins at `i`: operands joined by arithmetic operators
    // and "+", which bind more tightly than LIKE.
    size_t ExpressionEnd(size_t i) const {
        static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs,
                                              u"/"_qs, u"%"_qs, u"||"_qs};
        size_t end = PrimaryEnd(i);
        while (end > i && At(end) && At(end)->kind == TokenKind::Symbol &&
               operators.contains(At(end)->text)) {
            const size_t next = PrimaryEnd(end + 1);
            if (next == end + 1) break;
            end = next;
        }
        return end;
    }

    // LIKE (NOT LIKE when `negated`) as the engine's operator, its pattern in parentheses; an
    // ESCAPE character turns the escaped characters of a literal pattern into classes ("[%]").
    size_t EmitLike(size_t like, bool negated, QString& out) {
        const size_t patternEnd = ExpressionEnd(like + 1);
        out += (negated ? m_t[like - 1].leading : m_t[like].leading) +
               m_dialect.LikeOperator(negated) + QStringLiteral(" (");
        if (!WordAt(patternEnd, u"ESCAPE")) {
            out += Range(like + 1, patternEnd).trimmed() + u')';
            return patternEnd;
        }
        const Token* escape = At(patternEnd + 1);
        if (patternEnd != like + 2 || m_t[like + 1].kind != TokenKind::String || !escape ||
            escape->kind != TokenKind::String || escape->text.size() != 1)
            ThrowUnsupported(QStringLiteral("LIKE ... ESCAPE"));
        out += QuoteString(WithoutEscapes(m_t[like + 1].text, escape->text[0])) + u')';
        return patternEnd + 2;
    }

    static QString WithoutEscapes(const QString& pattern, QChar escape) {
        QString plain;
        for (qsizetype k = 0; k < pattern.size(); ++k) {
            if (pattern[k] != escape || k + 1 == pattern.size()) {
                plain += pattern[k];
                continue;
            }
            const QChar escaped = pattern[++k];
            plain += escaped == u'%' || escaped == u'_' || escaped == u'['
                         ? u'[' + QString(escaped) + u']'
                         : QString(escaped);
        }
        return plain;
    }

    bool IsTextColumnName(size_t i) const {
        const Token* name = At(i);
        if (!name || !m_context.isTextColumn || SymbolAt(i + 1, u"(") ||
            (name->kind != TokenKind::Word && name->kind != TokenKind::QuotedName))
            return false;
        return m_context.isTextColumn(name->text);
    }

    bool IsTextCast(size_t i) const {
        if (!WordAt(i, u"CAST") || !SymbolAt(i + 1, u"(")) return false;
        const size_t close = Close(i + 1);
        for (size_t j = i + 2; j + 1 < close; ++j) {
            if (m_t[j].IsWord(u"AS")) {
                const Token& type = m_t[j + 1];
                return type.IsWord(u"CHAR") || type.IsWord(u"VARCHAR") || type.IsWord(u"NCHAR") ||
                       type.IsWord(u"NVARCHAR");
            }
        }
        return false;
    }

    size_t EmitName(size_t i, size_t end, QString& out, std::multimap<size_t, QString>& limits) {
        const Token& t = m_t[i];
        if (i != m_plainOperand) {
            const size_t next = EmitDateArithmetic(i, out);
            if (next != i) return next;
        }
        const bool call = SymbolAt(i + 1, u"(");
        if (t.kind == TokenKind::Word) {
            if (t.IsWord(u"SELECT") && WordAt(i + 1, u"TOP")) return EmitTop(i, end, out, limits);
            if (call && IsTextFunction(t) && !m_dialect.TextResultCollation().isEmpty()) {
                const size_t after = Close(i + 1) + 1;
                // Written after the call, before a LIMIT that may follow it.
                if (IsComparison(i - 1) || IsComparison(after) || WordAt(i - 1, u"BY"))
                    limits.emplace_hint(limits.lower_bound(after), after,
                                        m_dialect.TextResultCollation());
            }
            if (call) {
                const size_t next = EmitFunction(i, out);
                if (next != i) return next;
            }
            if (t.IsWord(u"ORDER") && WordAt(i + 1, u"BY")) return EmitOrderBy(i, end, out);
            if (!m_dialect.LikeOperator(false).isEmpty()) {
                if (t.IsWord(u"LIKE")) return EmitLike(i, false, out);
                if (t.IsWord(u"NOT") && WordAt(i + 1, u"LIKE")) return EmitLike(i + 1, true, out);
            }
            if (t.IsWord(u"WITH") && SymbolAt(i + 1, u"(") && IsTableHint(i + 2))
                return SkipHints(i);
            if (t.IsWord(u"DEFAULT") && i >= 2 && m_t[i - 1].IsSymbol(u"=") &&
                !m_dialect.HasDefaultValues() && WordAt(0, u"UPDATE"))
                return EmitSetDefault(i, out);
            if (!m_dialect.AlterColumnTypeWord().isEmpty() && t.IsWord(u"COLUMN") && i > 0 &&
                m_t[i - 1].IsWord(u"ALTER") && i + 1 < end) {
                out += t.leading + t.text; // ALTER COLUMN c <word> t
                const size_t next = EmitQualifiedName(i + 1, out);
                out += m_dialect.AlterColumnTypeWord();
                return next;
            }
            if (t.IsWord(u"NONCLUSTERED") || t.IsWord(u"CLUSTERED")) return i + 1;
            if (t.IsWord(u"ON") && At(i + 1) && At(i + 1)->Is(TokenKind::QuotedName, u"PRIMARY"))
                return i + 2; // filegroup clause
            if (IsDdl()) {
                const QString type = m_dialect.ColumnType(t.text);
                if (!type.isEmpty() && i > 0 &&
                    (m_t[i - 1].kind != TokenKind::Symbol || m_t[i - 1].text.isEmpty())) {
                    out += t.leading + type;
                    if (SymbolAt(i + 1, u"(") && !m_dialect.KeepsTypeLength(t.text))
                        return Close(i + 1) + 1;
                    return i + 1;
                }
            }
        }
        return EmitQualifiedName(i, out);
    }

    // Names, possibly qualified: db..t and db.dbo.t become db.t, dbo.t becomes t; the SQL
    // Server catalog tables become queries over the engine's catalog.
    size_t EmitQualifiedName(size_t i, QString& out) {
        const Token& first = m_t[i];
        // A name on its own, the usual case, is written without taking it apart.
        const bool qualified = SymbolAt(i + 1, u".") && At(i + 2) && m_t[i + 1].leading.isEmpty() &&
                               m_t[i + 2].leading.isEmpty();
        if (!qualified && !IsCatalogTable(first.text) &&
            !(m_context.locksSchema && first.text.compare(u"locks", Qt::CaseInsensitive) == 0)) {
            out += first.leading;
            out +=
                first.kind == TokenKind::QuotedName ? m_dialect.QuoteName(first.text) : first.text;
            return i + 1;
        }
        struct Part {
            QString name;
            bool quoted;
        };
        std::vector<Part> parts{{m_t[i].text, m_t[i].kind == TokenKind::QuotedName}};
        size_t j = i + 1;
        while (SymbolAt(j, u".") && At(j + 1) && m_t[j].leading.isEmpty() &&
               m_t[j + 1].leading.isEmpty()) {
            if (m_t[j + 1].IsSymbol(u".")) {
                parts.push_back({QString(), false}); // db..t
                ++j;
                continue;
            }
            if (m_t[j + 1].kind != TokenKind::Word && m_t[j + 1].kind != TokenKind::QuotedName)
                break;
            parts.push_back({m_t[j + 1].text, m_t[j + 1].kind == TokenKind::QuotedName});
            j += 2;
        }
        auto isOwner = [](const Part& part) {
            return part.name.isEmpty() || part.name.compare(u"dbo", Qt::CaseInsensitive) == 0;
        };
        // Only db..t and db.dbo.t name another database; a.b is a column of table (or alias)
        // a, or table b of owner a.
        const bool inDatabase = parts.size() == 3 && isOwner(parts[1]);
        if (inDatabase) parts.erase(parts.begin() + 1);
        if (parts.size() == 2 && isOwner(parts[0])) parts.erase(parts.begin());
        const QString catalog = CatalogTable(parts.back().name);
        if (!catalog.isEmpty()) {
            out += m_t[i].leading + catalog;
            return j;
        }
        if (m_context.locksSchema &&
            parts.back().name.compare(u"locks", Qt::CaseInsensitive) == 0) {
            const QString database = parts.size() == 2 ? parts[0].name : QString();
            out += m_t[i].leading + m_context.locksSchema(database) + QStringLiteral(".locks");
            return j;
        }
        if (inDatabase && parts.size() == 2) {
            m_databases << parts[0].name;
            if (m_context.databaseAlias) parts[0] = {m_context.databaseAlias(parts[0].name), false};
        }
        QStringList written;
        for (const Part& part : parts)
            written << (part.quoted ? m_dialect.QuoteName(part.name) : part.name);
        out += m_t[i].leading + written.join(u'.');
        return j;
    }

    size_t EmitOrderBy(size_t order, size_t end, QString& out) {
        out += m_t[order].leading + m_t[order].text + m_t[order + 1].leading + m_t[order + 1].text;
        const size_t last = OrderByEnd(order + 2, end);
        EmitOrderedItems(order + 2, last, out);
        return last;
    }

    // Where the items of an ORDER BY that start at `from` end.
    size_t OrderByEnd(size_t from, size_t end) const {
        static const QStringList after = {QStringLiteral("FOR"),    QStringLiteral("OPTION"),
                                          QStringLiteral("OFFSET"), QStringLiteral("UNION"),
                                          QStringLiteral("EXCEPT"), QStringLiteral("INTERSECT"),
                                          QStringLiteral("COMPUTE")};
        int depth = 0;
        for (size_t i = from; i < end; ++i) {
            if (m_t[i].IsSymbol(u"("))
                ++depth;
            else if (m_t[i].IsSymbol(u")") && --depth < 0)
                return i;
            else if (depth == 0 && m_t[i].kind == TokenKind::Word &&
                     after.contains(m_t[i].text, Qt::CaseInsensitive))
                return i;
        }
        return end;
    }

    // The comma-separated sort items in [from, end), each with the NULL placement of SQL
    // Server.
    void EmitOrderedItems(size_t from, size_t end, QString& out) {
        for (size_t item = from; item < end;) {
            size_t next = item;
            for (int depth = 0; next < end && !(depth == 0 && m_t[next].IsSymbol(u",")); ++next) {
                if (m_t[next].IsSymbol(u"("))
                    ++depth;
                else if (m_t[next].IsSymbol(u")"))
                    --depth;
            }
            out += Range(item, next) + NullsOrder(item, next);
            if (next < end) out += m_t[next].leading + m_t[next].text;
            item = next + 1;
        }
    }

    // What the sort item [first, last) adds to place its NULLs; nothing for a column that no
    // table lets be NULL (so that the engine may still read it in the order of an index).
    QString NullsOrder(size_t first, size_t last) const {
        if (first == last || m_dialect.NullsOrder(false).isEmpty()) return {};
        if (last - first >= 2 && m_t[last - 2].IsWord(u"NULLS")) return {};
        const bool descending = m_t[last - 1].IsWord(u"DESC");
        const size_t expressionEnd = descending || m_t[last - 1].IsWord(u"ASC") ? last - 1 : last;
        const Token* column = NamedColumn(first, expressionEnd);
        if (column && m_context.mayBeNull && !m_context.mayBeNull(column->text)) return {};
        return m_dialect.NullsOrder(descending);
    }

    bool IsIntegerColumn(size_t first, size_t end) const {
        const Token* column = NamedColumn(first, end);
        return column && m_context.isIntegerColumn && m_context.isIntegerColumn(column->text);
    }

    // The column that [first, end) names (c, t.c, [c]); nullptr for any other expression.
    const Token* NamedColumn(size_t first, size_t end) const {
        for (size_t i = first; i < end; i += 2) {
            if (m_t[i].kind != TokenKind::Word && m_t[i].kind != TokenKind::QuotedName)
                return nullptr;
            if (i + 1 == end) return &m_t[i];
            if (!m_t[i + 1].IsSymbol(u".")) return nullptr;
        }
        return nullptr;
    }

    // The SQL Server catalog tables are views of the session (master..sysdatabases included).
    static bool IsCatalogTable(const QString& table) {
        for (const char16_t* name :
             {u"sysobjects", u"syscolumns", u"sysdatabases", u"sysprocesses"})
            if (table.compare(QStringView(name), Qt::CaseInsensitive) == 0) return true;
        return false;
    }

    static QString CatalogTable(const QString& table) {
        return IsCatalogTable(table) ? table.toLower() : QString();
    }

    size_t EmitTop(size_t select, size_t end, QString& out,
                   std::multimap<size_t, QString>& limits) {
        size_t count = select + 2;
        QString n;
        size_t next;
        if (SymbolAt(count, u"(")) {
            const size_t close = Close(count);
            n = Range(count + 1, close).trimmed();
            next = close + 1;
        } else if (At(count) && At(count)->kind == TokenKind::Number) {
            n = m_t[count].text;
            next = count + 1;
        } else {
            ThrowStatementError(QStringLiteral("Incorrect syntax near 'TOP'."), ado::kNativeSyntax);
        }
        const size_t scopeEnd = ScopeEnd(select, end);
        QString limit = QStringLiteral(" LIMIT ") + n;
        if (WordAt(next, u"PERCENT")) {
            limit = QStringLiteral(" LIMIT ") + PercentCount(select, scopeEnd, n);
            ++next;
        }
        if (WordAt(next, u"WITH") && WordAt(next + 1, u"TIES")) {
            limit = WordAt(next - 1, u"PERCENT") ? QString() : m_dialect.FirstRowsWithTies(n);
            if (limit.isEmpty()) ThrowUnsupported(QStringLiteral("TOP ... WITH TIES"));
            next += 2;
        }
        limits.emplace(scopeEnd, limit);
        out += m_t[select].leading + m_t[select].text;
        return next;
    }

    // TOP n PERCENT: that share of the rows that the SELECT finds, rounded up, counted by a
    // subquery over its FROM and WHERE.
    QString PercentCount(size_t select, size_t scopeEnd, const QString& percent) {
        bool whole = false;
        percent.toInt(&whole);
        const size_t from = DepthZeroWord(select + 1, u"FROM");
        const size_t order = std::min(DepthZeroWord(from, u"ORDER"), scopeEnd);
        if (!whole || from >= scopeEnd || DepthZeroWord(from, u"GROUP") < scopeEnd)
            ThrowUnsupported(QStringLiteral("TOP ") + percent + QStringLiteral(" PERCENT"));
        return QStringLiteral("(SELECT (count(*) * %1 + 99) / 100 ").arg(percent) +
               Range(from, order).trimmed() + u')';
    }

    // Where the SELECT at `select` ends: the ")" closing its parenthesis, or the end.
    size_t ScopeEnd(size_t select, size_t end) const {
        int depth = 0;
        for (size_t i = select + 1; i < end; ++i) {
            if (m_t[i].IsSymbol(u"("))
                ++depth;
            else if (m_t[i].IsSymbol(u")") && --depth < 0)
                return i;
            else if (depth == 0 && m_t[i].IsWord(u"UNION"))
                ThrowUnsupported(QStringLiteral("TOP con UNION"));
        }
        return end;
    }

    bool IsTableHint(size_t i) const {
        static const QStringList hints = {QStringLiteral("TABLOCKX"), QStringLiteral("TABLOCK"),
                                          QStringLiteral("NOLOCK"),   QStringLiteral("HOLDLOCK"),
                                          QStringLiteral("UPDLOCK"),  QStringLiteral("ROWLOCK"),
                                          QStringLiteral("XLOCK"),    QStringLiteral("READPAST")};
        return At(i) && At(i)->kind == TokenKind::Word &&
               hints.contains(At(i)->text, Qt::CaseInsensitive);
    }

    size_t SkipHints(size_t with) {
        const size_t close = Close(with + 1);
        for (size_t j = with + 2; j < close; ++j) {
            if (m_t[j].IsWord(u"TABLOCKX") || m_t[j].IsWord(u"XLOCK"))
                m_exclusive << HintedTable(with);
        }
        return close + 1;
    }

    // t (NOLOCK): hints in parentheses right after the table, without WITH.
    size_t SkipBareHints(size_t open) {
        const size_t close = Close(open);
        for (size_t j = open + 1; j < close; ++j) {
            if (m_t[j].IsWord(u"TABLOCKX") || m_t[j].IsWord(u"XLOCK"))
                m_exclusive << HintedTable(open);
        }
        return close + 1;
    }

    QString HintedTable(size_t with) const {
        size_t j = with;
        while (j > 0 && !(m_t[j - 1].IsWord(u"FROM") || m_t[j - 1].IsWord(u"UPDATE") ||
                          m_t[j - 1].IsWord(u"INTO")))
            --j;
        Rewriter copy(m_context, Tokens(m_t.begin() + j, m_t.begin() + with));
        return copy.Range(0, with - j).trimmed();
    }

    size_t EmitSetDefault(size_t i, QString& out) {
        const QString column = m_t[i - 2].text;
        const QString table = m_t[1].text;
        const QString value =
            m_context.columnDefault ? m_context.columnDefault(table, column) : QString();
        out += m_t[i].leading + (value.isEmpty() ? QStringLiteral("NULL") : value);
        return i + 1;
    }

    // Function calls with another spelling; returns `i` when the call stays as written.
    size_t EmitFunction(size_t i, QString& out) {
        const Token& t = m_t[i];
        const size_t open = i + 1;
        const size_t close = Close(open);
        const auto commas = Commas(open, close);
        auto arg = [&](size_t k) {
            if (k > commas.size())
                ThrowStatementError(
                    QStringLiteral("The %1 function requires more arguments.").arg(t.text), 174);
            const size_t from = k == 0 ? open + 1 : commas[k - 1] + 1;
            const size_t to = k < commas.size() ? commas[k] : close;
            return Range(from, to).trimmed();
        };
        const QString lead = t.leading;
        if (const FunctionSpelling* spelling = m_dialect.FindFunction(t.text)) {
            const int count = close == open + 1 ? 0 : static_cast<int>(commas.size()) + 1;
            if (!spelling->exact || count == spelling->arguments) {
                QStringList arguments;
                for (int k = 0; k < spelling->arguments; ++k)
                    arguments << arg(static_cast<size_t>(k));
                out += lead + FillPattern(spelling->pattern, arguments);
                return close + 1;
            }
        }
        if (t.IsWord(u"SERVERPROPERTY")) {
            if (arg(0).compare(u"'ProductVersion'", Qt::CaseInsensitive) != 0)
                ThrowUnsupported(QStringLiteral("ServerProperty(") + arg(0) + u')');
            out += lead + QuoteString(QString::fromLatin1(kProductVersion));
            return close + 1;
        }
        if (t.IsWord(u"DATABASEPROPERTY")) {
            // The engines have no offline or shut-down databases.
            const QString property = arg(1);
            if (property.compare(u"'IsShutDown'", Qt::CaseInsensitive) != 0 &&
                property.compare(u"'IsOffline'", Qt::CaseInsensitive) != 0)
                ThrowUnsupported(QStringLiteral("DATABASEPROPERTY(") + property + u')');
            out += lead + QStringLiteral("0");
            return close + 1;
        }
        if (t.IsWord(u"DB_NAME") && close == open + 1) {
            out += lead + m_dialect.CurrentDatabaseName();
            return close + 1;
        }
        if (t.IsWord(u"AVG") && IsIntegerColumn(open + 1, close)) {
            // The average of integers is an integer, its fraction dropped.
            out += lead + m_dialect.TruncatingCast(
                              QStringLiteral("AVG(%1)").arg(Range(open + 1, close).trimmed()),
                              m_dialect.CastType(QStringLiteral("BIGINT")));
            return close + 1;
        }
        if (DateFunctionWriter::Handles(t.text)) {
            out += lead + DateWriter().Call(t.text, CallArguments(open, close, commas));
            return close + 1;
        }
        if (t.IsWord(u"CAST")) return EmitCast(i, close, out);
        if (t.IsWord(u"LEN")) {
            out += lead + QStringLiteral("length(rtrim(%1))").arg(arg(0));
            return close + 1;
        }
        return i;
    }

    DateFunctionWriter DateWriter() const {
        DateSettings settings;
        settings.order = m_context.dayMonthYear ? DateOrder::DayMonthYear : DateOrder::MonthDayYear;
        settings.dateFirst = m_context.dateFirst;
        settings.spanish = m_context.spanishNames;
        return DateFunctionWriter(m_dialect, settings);
    }

    CallArgument ArgumentOf(size_t from, size_t to) {
        const bool text = to == from + 1 && m_t[from].kind == TokenKind::String;
        return CallArgument{Range(from, to), text, text ? m_t[from].text : QString()};
    }

    // The arguments of the call whose parentheses are at `open` and `close`.
    std::vector<CallArgument> CallArguments(size_t open, size_t close,
                                            const std::vector<size_t>& commas) {
        std::vector<CallArgument> arguments;
        if (close == open + 1) return arguments;
        for (const auto& [from, to] : Items(open, close, commas))
            arguments.push_back(ArgumentOf(from, to));
        return arguments;
    }

    // value + n and value - n, value a date: n days later or earlier. Answers `i` when the
    // operand at `i` is no date with a number added.
    size_t EmitDateArithmetic(size_t i, QString& out) {
        const size_t end = PrimaryEnd(i);
        const bool plus = SymbolAt(end, u"+");
        if (end == i || !(plus || SymbolAt(end, u"-"))) return i;
        const Token* days = At(end + 1);
        if (!days || days->kind != TokenKind::Number || IsBinaryLiteral(*days) ||
            SymbolAt(end + 2, u"*") || SymbolAt(end + 2, u"/") || SymbolAt(end + 2, u"%") ||
            !IsDateOperand(i, end))
            return i;
        m_plainOperand = i;
        const QString value = Range(i, end).trimmed();
        m_plainOperand = kNone;
        out += m_t[i].leading +
               m_dialect.DatePlusDays(value, (plus ? QString() : QStringLiteral("-")) + days->text);
        return end + 2;
    }

    // Whether [i, end) is a date: a CAST or CONVERT to a date type, GETDATE(), DATEADD(...) or
    // a date column.
    bool IsDateOperand(size_t i, size_t end) const {
        const Token& t = m_t[i];
        if (SymbolAt(i + 1, u"(") && t.kind == TokenKind::Word) {
            if (t.IsWord(u"GETDATE") || t.IsWord(u"DATEADD")) return true;
            if (t.IsWord(u"CONVERT"))
                return At(i + 2) && DateFunctionWriter::IsDateType(At(i + 2)->text);
            if (!t.IsWord(u"CAST")) return false;
            const size_t close = Close(i + 1);
            return WordAt(close - 2, u"AS") && DateFunctionWriter::IsDateType(m_t[close - 1].text);
        }
        const Token& column = m_t[end - 1];
        return (column.kind == TokenKind::Word || column.kind == TokenKind::QuotedName) &&
               m_context.isDateColumn && m_context.isDateColumn(column.text);
    }

    // CAST(x AS type); CAST(FLOOR(CAST(x AS FLOAT)) AS DATETIME) is the date of x at midnight.
    size_t EmitCast(size_t cast, size_t close, QString& out) {
        size_t as = close;
        int depth = 0;
        for (size_t j = cast + 2; j < close; ++j) {
            if (m_t[j].IsSymbol(u"("))
                ++depth;
            else if (m_t[j].IsSymbol(u")"))
                --depth;
            else if (depth == 0 && m_t[j].IsWord(u"AS"))
                as = j;
        }
        if (as == close)
            ThrowStatementError(QStringLiteral("Incorrect syntax near 'CAST'."),
                                ado::kNativeSyntax);
        const QString type =
            TokensToSql(Tokens(m_t.begin() + as + 1, m_t.begin() + close)).simplified().toUpper();
        const QString lead = m_t[cast].leading;
        if (type == u"DATETIME" && WordAt(cast + 2, u"FLOOR") && WordAt(cast + 4, u"CAST")) {
            const size_t innerClose = Close(cast + 5);
            size_t innerAs = innerClose - 2;
            if (m_t[innerAs].IsWord(u"AS") && m_t[innerAs + 1].IsWord(u"FLOAT")) {
                const QString value = Range(cast + 6, innerAs).trimmed();
                out += lead + m_dialect.DateOnly(value);
                return close + 1;
            }
        }
        if (as == cast + 3 && m_t[cast + 2].kind == TokenKind::String &&
            m_t[cast + 2].text.trimmed().isEmpty()) {
            // CAST('' AS INT) is 0, CAST('' AS DATETIME) the date numbered 0.
            const ColumnKind kind = KindOfTsqlType(type);
            const QString blank = BlankAs(kind);
            if (!blank.isEmpty()) {
                const QString engineType =
                    kind == ColumnKind::Date ? QString() : m_dialect.CastType(type);
                out += lead + (engineType.isEmpty() ? blank : m_dialect.Cast(blank, type, false));
                return close + 1;
            }
        }
        if (as == cast + 3 && m_t[cast + 2].kind == TokenKind::String) {
            if (const QString date = DateWriter().CastLiteral(ArgumentOf(cast + 2, as), type);
                !date.isEmpty()) {
                out += lead + date;
                return close + 1;
            }
        }
        const bool textLiteral = as == cast + 3 && m_t[cast + 2].kind == TokenKind::String;
        if (textLiteral && KindOfTsqlType(type) == ColumnKind::Integer)
            RequireIntegerText(m_t[cast + 2].text);
        const QString sql = m_dialect.Cast(Range(cast + 2, as).trimmed(), type, textLiteral);
        if (sql.isEmpty()) ThrowUnsupported(QStringLiteral("CAST AS ") + type);
        out += lead + sql;
        return close + 1;
    }

    const TranslationContext& m_context;
    const EngineDialect& m_dialect;
    Tokens m_t;
    QStringList m_exclusive;
    std::optional<std::int64_t> m_identityStart;
    QStringList m_databases;
    static constexpr size_t kNone = static_cast<size_t>(-1);
    size_t m_plainOperand = kNone;              // the operand EmitDateArithmetic is writing
    std::optional<StoreTargetColumns> m_target; // what StoredColumnKind looked up
};

bool ValidDateTime(int y, int m, int d, int hh, int mi, int ss) {
    return y >= 1753 && QDate::isValid(y, m, d) && QTime::isValid(hh, mi, ss);
}

} // namespace

QString EngineIndexName(const QString& table, const QString& index) {
    return table + u'_' + index;
}

QString NormalizedDateLiteral(const QString& text, bool dayMonthYear) {
    static const QRegularExpression compact(
        QStringLiteral("^(\\d{4})(\\d{2})(\\d{2})(?: (\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?$"));
    static const QRegularExpression slashed(
        QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{4})(?: (\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?$"));
    int y = 0, m = 0, d = 0;
    QRegularExpressionMatch match = compact.match(text);
    if (match.hasMatch()) {
        y = match.captured(1).toInt();
        m = match.captured(2).toInt();
        d = match.captured(3).toInt();
    } else if (dayMonthYear && (match = slashed.match(text)).hasMatch()) {
        d = match.captured(1).toInt();
        m = match.captured(2).toInt();
        y = match.captured(3).toInt();
    } else {
        return QString();
    }
    const int hh = match.captured(4).toInt(), mi = match.captured(5).toInt(),
              ss = match.captured(6).toInt();
    if (!ValidDateTime(y, m, d, hh, mi, ss)) return QString();
    return QStringLiteral("%1-%2-%3 %4:%5:%6")
        .arg(y, 4, 10, QChar(u'0'))
        .arg(m, 2, 10, QChar(u'0'))
        .arg(d, 2, 10, QChar(u'0'))
        .arg(hh, 2, 10, QChar(u'0'))
        .arg(mi, 2, 10, QChar(u'0'))
        .arg(ss, 2, 10, QChar(u'0'));
}

TsqlTranslator::TsqlTranslator(TranslationContext context) : m_context(std::move(context)) {}

Translation TsqlTranslator::Translate(const Tokens& statement) const {
    return Rewriter(m_context, statement).Run();
}

} // namespace zlx::tsql
