#include "platform/tsql/TableDefinitionRewriter.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TsqlTranslator.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

bool IsConstraintWord(const Token& token) {
    for (QStringView word : {u"CONSTRAINT", u"PRIMARY", u"UNIQUE", u"CHECK", u"FOREIGN"})
        if (token.IsWord(word)) return true;
    return false;
}

} // namespace

TableDefinitionRewriter::TableDefinitionRewriter(StatementTokens& tokens,
                                                 const TranslationContext& context)
    : m_t(tokens), m_context(context), m_dialect(DialectOf(context)) {}

std::optional<std::int64_t> TableDefinitionRewriter::Rewrite() {
    PrepareDefinitions();
    DeferAddedDefault();
    AlterNullability();
    return m_identityStart;
}

void TableDefinitionRewriter::AlterNullability() {
    if (!m_t.WordAt(0, u"ALTER") || !m_t.WordAt(1, u"TABLE")) return;
    const size_t alter = m_t.QualifiedNameEnd(2);
    const size_t last = m_t.size() - 1;
    if (!m_t.WordAt(alter, u"ALTER") || !m_t.WordAt(alter + 1, u"COLUMN") || last < alter + 4 ||
        !m_t.WordAt(last, u"NULL"))
        return;
    const bool notNull = m_t.WordAt(last - 1, u"NOT");
    const Token& column = m_t[alter + 2];
    const QString clause = m_dialect.ColumnNullability(
        column.kind == TokenKind::QuotedName ? m_dialect.QuoteName(column.text) : column.text,
        notNull);
    if (clause.isEmpty()) return;
    m_t.erase(m_t.begin() + static_cast<std::ptrdiff_t>(notNull ? last - 1 : last), m_t.end());
    m_t.insert(m_t.end(), Raw(clause));
}

// Both engines fill the rows already there with an added column's default, as SQL Server does
// only for a NOT NULL column or WITH VALUES (which they do not know). The default may be a
// named constraint (CONSTRAINT df DEFAULT x), which goes with it.
void TableDefinitionRewriter::DeferAddedDefault() {
    if (!m_t.WordAt(0, u"ALTER") || !m_t.WordAt(1, u"TABLE")) return;
    const size_t add = m_t.QualifiedNameEnd(2);
    if (!m_t.WordAt(add, u"ADD") || !m_t.At(add + 1) || !IsName(m_t[add + 1]) ||
        IsConstraintWord(m_t[add + 1]))
        return;
    size_t clause = 0; // where the default's clause begins, its constraint's name included
    bool notNull = false;
    for (size_t k = add + 2, depth = 0; k < m_t.size(); ++k) {
        if (m_t[k].IsSymbol(u"("))
            ++depth;
        else if (m_t[k].IsSymbol(u")"))
            --depth;
        else if (depth > 0)
            continue;
        else if (m_t[k].IsSymbol(u","))
            return; // several columns
        else if (m_t[k].IsWord(u"DEFAULT"))
            clause = m_t.WordAt(k - 2, u"CONSTRAINT") ? k - 2 : k;
        else if (m_t[k].IsWord(u"NOT") && m_t.WordAt(k + 1, u"NULL"))
            notNull = true;
        else if (m_t[k].IsWord(u"WITH") && m_t.WordAt(k + 1, u"VALUES")) {
            m_t.erase(m_t.begin() + static_cast<std::ptrdiff_t>(k),
                      m_t.begin() + static_cast<std::ptrdiff_t>(k) + 2);
            return; // the engine fills the rows
        }
    }
    if (clause == 0 || notNull) return;
    const size_t value = (m_t.WordAt(clause, u"CONSTRAINT") ? clause + 2 : clause) + 1;
    const size_t end = DefaultEnd(value);
    m_deferredDefault = Tokens(m_t.begin() + static_cast<std::ptrdiff_t>(value),
                               m_t.begin() + static_cast<std::ptrdiff_t>(end));
    const Token& column = m_t[add + 1];
    m_deferredColumn =
        column.kind == TokenKind::QuotedName ? m_dialect.QuoteName(column.text) : column.text;
    m_t.erase(m_t.begin() + static_cast<std::ptrdiff_t>(clause),
              m_t.begin() + static_cast<std::ptrdiff_t>(end));
}

size_t TableDefinitionRewriter::DefaultEnd(size_t first) const {
    if (m_t.SymbolAt(first, u"(")) return m_t.Close(first) + 1;
    if (m_t.SymbolAt(first, u"-") || m_t.SymbolAt(first, u"+")) return first + 2;
    if (m_t.At(first) && m_t[first].kind == TokenKind::Word && m_t.SymbolAt(first + 1, u"("))
        return m_t.Close(first + 1) + 1;
    return std::min(first + 1, m_t.size());
}

void TableDefinitionRewriter::PrepareDefinitions() {
    if (!m_t.IsDdl()) return;
    for (size_t i = 0; i < m_t.size(); ++i) {
        AddColumnCheck(i);
        // The engines keep a computed column apart from the others (SQLite's catalog does not
        // list it, PostgreSQL needs its type).
        if (m_t[i].IsWord(u"AS") && FollowsColumnName(i) && i >= 2 &&
            (m_t[i - 2].IsSymbol(u"(") || m_t[i - 2].IsSymbol(u",") || m_t[i - 2].IsWord(u"ADD")))
            ThrowUnsupported(QStringLiteral("columna calculada (%1 AS ...)").arg(m_t[i - 1].text));
        if (IsTextColumnType(i)) {
            UseSizedTextType(i);
            CollateWithoutCase(i);
            MarkNationalText(i);
        } else if (const auto dateType = DateColumnTypeAt(i)) {
            UseDateColumnType(i, *dateType);
        } else if (IsDomainColumnType(i)) {
            UseDomainType(i);
        } else if (m_t[i].IsWord(u"DEFAULT") && m_t.At(i + 1) &&
                   m_t.At(i + 1)->Is(TokenKind::Number, u"0") && IsDateColumnBefore(i)) {
            // A date column's default 0 is the date numbered 0.
            m_t[i + 1].kind = TokenKind::String;
            m_t[i + 1].text = m_context.jetDates ? QStringLiteral("1899-12-30 00:00:00")
                                                 : QStringLiteral("1900-01-01 00:00:00");
        } else if (m_t[i].IsWord(u"DEFAULT") && m_t.At(i + 1) &&
                   m_t.At(i + 1)->kind == TokenKind::Word && m_t.SymbolAt(i + 2, u"(")) {
            // A call as a column's default goes in parentheses, which SQLite requires.
            m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(m_t.Close(i + 2)) + 1,
                       Raw(QStringLiteral(")")));
            m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                       Raw(QStringLiteral("("), m_t[i + 1].leading));
            m_t[i + 2].leading.clear();
        } else if (m_t[i].IsWord(u"DEFAULT") && IsDateColumnBefore(i)) {
            ReadDefaultAsDate(i + 1);
        } else if (m_t[i].IsWord(u"IDENTITY")) {
            // IDENTITY alone is IDENTITY(1,1).
            const bool bare = !m_t.SymbolAt(i + 1, u"(");
            const size_t close = bare ? i : m_t.Close(i + 1);
            const QString arguments =
                bare ? QStringLiteral("1,1")
                     : TokensToSql(Tokens(m_t.begin() + i + 2, m_t.begin() + close)).simplified();
            const QStringList parts = QString(arguments).remove(u' ').split(u',');
            bool seedOk = false, stepOk = false;
            const qint64 seed = parts.value(0).toLongLong(&seedOk);
            const qint64 step = parts.value(1).toLongLong(&stepOk);
            const IdentitySpelling identity = parts.size() == 2 && seedOk && stepOk && step != 0
                                                  ? m_dialect.Identity(seed, step)
                                                  : IdentitySpelling();
            if (identity.text.isEmpty())
                ThrowUnsupported(QStringLiteral("IDENTITY(") + arguments + u')');
            if (!bare) m_t.erase(m_t.begin() + i + 1, m_t.begin() + close + 1);
            const QString mark = HasOwnKey(i) ? QString() : identity.keylessMark;
            if (identity.integerKey) {
                RetypeAsInteger(i);
                i -= DropColumnPrimaryKey(i);
            }
            m_t[i] = Raw(identity.text + mark, m_t[i].leading);
            m_identityStart = identity.start;
        } else if (m_t[i].IsWord(u"AUTOINCREMENT")) {
            m_t[i] = Raw(m_dialect.Autoincrement(), m_t[i].leading);
            if (m_dialect.MarksAutoincrementKey()) MarkAutoincrementKey(i);
        }
    }
}

void TableDefinitionRewriter::AddColumnCheck(size_t type) {
    if (m_t.WordAt(3, u"ALTER") || type == 0 || m_t[type].kind != TokenKind::Word) return;
    const Token& column = m_t[type - 1];
    if ((column.kind != TokenKind::Word && column.kind != TokenKind::QuotedName) ||
        column.IsWord(u"AS") || column.IsWord(u"TABLE") || column.IsWord(u"COLUMN"))
        return;
    size_t end = type + 1;
    if (m_t.SymbolAt(end, u"(")) end = m_t.Close(end) + 1;
    const auto [first, last] = m_t.ColumnDefinitionAround(type);
    for (size_t j = first; j < last; ++j)
        if (m_t[j].IsWord(u"IDENTITY")) return;
    const QString typeText =
        TokensToSql(Tokens(m_t.begin() + type, m_t.begin() + end)).simplified().toUpper();
    const bool quoted = column.kind == TokenKind::QuotedName || m_dialect.ReservesWord(column.text);
    const QString check =
        m_dialect.ColumnCheck(quoted ? m_dialect.QuoteName(column.text) : column.text, typeText);
    if (!check.isEmpty())
        m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(end), Raw(check, QStringLiteral(" ")));
}

void TableDefinitionRewriter::ReadDefaultAsDate(size_t value) {
    while (m_t.SymbolAt(value, u"("))
        ++value;
    if (!m_t.At(value) || m_t[value].kind != TokenKind::String) return;
    const QString iso = NormalizedDateLiteral(m_t[value].text, m_context.dayMonthYear);
    if (!iso.isEmpty()) m_t[value].text = iso;
}

bool TableDefinitionRewriter::IsDateColumnBefore(size_t i) const {
    for (size_t j = i; j-- > 0;) {
        if (m_t[j].IsSymbol(u",") || m_t[j].IsSymbol(u"(") || m_t[j].IsWord(u"ADD")) break;
        if (m_t[j].kind == TokenKind::Word && ado::DateType::Named(m_t[j].text)) return true;
    }
    return false;
}

bool TableDefinitionRewriter::IsTextColumnType(size_t i) const {
    static const QStringList types = {QStringLiteral("CHAR"),  QStringLiteral("VARCHAR"),
                                      QStringLiteral("NCHAR"), QStringLiteral("NVARCHAR"),
                                      QStringLiteral("TEXT"),  QStringLiteral("NTEXT")};
    return m_t[i].kind == TokenKind::Word && types.contains(m_t[i].text, Qt::CaseInsensitive) &&
           FollowsColumnName(i);
}

bool TableDefinitionRewriter::FollowsColumnName(size_t i) const {
    if (i == 0) return false;
    const Token& previous = m_t[i - 1];
    return (previous.kind == TokenKind::Word || previous.kind == TokenKind::QuotedName) &&
           !previous.IsWord(u"AS") && !previous.IsWord(u"TABLE");
}

std::optional<ado::DateType> TableDefinitionRewriter::DateColumnTypeAt(size_t i) const {
    if (m_t[i].kind != TokenKind::Word || !FollowsColumnName(i)) return std::nullopt;
    const size_t end = m_t.SymbolAt(i + 1, u"(") ? m_t.Close(i + 1) + 1 : i + 1;
    return ado::DateType::Named(TokensToSql(Tokens(m_t.begin() + i, m_t.begin() + end)));
}

void TableDefinitionRewriter::UseDateColumnType(size_t type, const ado::DateType& dateType) {
    const QString engineType = m_dialect.DateColumnType(dateType);
    if (engineType.isEmpty()) return;
    if (m_t.SymbolAt(type + 1, u"("))
        m_t.erase(m_t.begin() + static_cast<std::ptrdiff_t>(type) + 1,
                  m_t.begin() + static_cast<std::ptrdiff_t>(m_t.Close(type + 1)) + 1);
    m_t[type] = Raw(engineType, m_t[type].leading);
}

void TableDefinitionRewriter::UseSizedTextType(size_t type) {
    if (!m_t.SymbolAt(type + 1, u"(")) return;
    const size_t end = m_t.Close(type + 1) + 1;
    const QString engineType = m_dialect.SizedTextColumnType(
        TokensToSql(Tokens(m_t.begin() + type, m_t.begin() + end)).simplified().toUpper());
    if (engineType.isEmpty()) return;
    m_t.erase(m_t.begin() + static_cast<std::ptrdiff_t>(type) + 1,
              m_t.begin() + static_cast<std::ptrdiff_t>(end));
    m_t[type] = Raw(engineType, m_t[type].leading);
}

bool TableDefinitionRewriter::IsDomainColumnType(size_t i) const {
    static const QStringList types = {QStringLiteral("DECIMAL"), QStringLiteral("DEC"),
                                      QStringLiteral("VARBINARY"), QStringLiteral("BINARY")};
    return m_t[i].kind == TokenKind::Word && types.contains(m_t[i].text, Qt::CaseInsensitive) &&
           FollowsColumnName(i);
}

void TableDefinitionRewriter::UseDomainType(size_t type) {
    const size_t end = m_t.SymbolAt(type + 1, u"(") ? m_t.Close(type + 1) + 1 : type + 1;
    const QString engineType = m_dialect.DomainColumnType(
        TokensToSql(Tokens(m_t.begin() + static_cast<std::ptrdiff_t>(type),
                           m_t.begin() + static_cast<std::ptrdiff_t>(end)))
            .simplified()
            .toUpper());
    if (engineType.isEmpty()) return;
    m_t.erase(m_t.begin() + static_cast<std::ptrdiff_t>(type) + 1,
              m_t.begin() + static_cast<std::ptrdiff_t>(end));
    m_t[type] = Raw(engineType, m_t[type].leading);
}

void TableDefinitionRewriter::CollateWithoutCase(size_t type) {
    size_t end = type + 1;
    if (m_t.SymbolAt(end, u"(")) end = m_t.Close(end) + 1;
    if (m_t.WordAt(end, u"COLLATE")) return;
    m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(end),
               Raw(m_dialect.CaseInsensitiveCollation(), QStringLiteral(" ")));
}

// Before the collation: ALTER COLUMN has no place for the mark.
void TableDefinitionRewriter::MarkNationalText(size_t type) {
    const QString mark = m_dialect.NationalTextMark();
    if (mark.isEmpty() || !m_t[type].text.startsWith(u'N', Qt::CaseInsensitive) ||
        m_t.WordAt(3, u"ALTER"))
        return;
    size_t end = type + 1;
    if (m_t.SymbolAt(end, u"(")) end = m_t.Close(end) + 1;
    m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(end), Raw(mark, QStringLiteral(" ")));
}

bool TableDefinitionRewriter::HasOwnKey(size_t identity) const {
    const auto [first, last] = m_t.ColumnDefinitionAround(identity);
    for (size_t j = first; j < last; ++j)
        if (m_t[j].IsWord(u"UNIQUE") || (m_t[j].IsWord(u"PRIMARY") && m_t.WordAt(j + 1, u"KEY")))
            return true;
    return false;
}

void TableDefinitionRewriter::RetypeAsInteger(size_t identity) {
    for (size_t j = identity; j-- > 0;) {
        if (m_t[j].IsWord(u"INT") || m_t[j].IsWord(u"BIGINT") || m_t[j].IsWord(u"SMALLINT") ||
            m_t[j].IsWord(u"INTEGER")) {
            m_t[j].text = QStringLiteral("INTEGER");
            return;
        }
    }
}

size_t TableDefinitionRewriter::DropColumnPrimaryKey(size_t identity) {
    const auto [first, last] = m_t.ColumnDefinitionAround(identity);
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

void TableDefinitionRewriter::MarkAutoincrementKey(size_t from) {
    for (size_t j = from; j + 1 < m_t.size(); ++j) {
        if (m_t[j].IsWord(u"PRIMARY") && m_t[j + 1].IsWord(u"KEY")) {
            m_t[j + 1].text = QStringLiteral("KEY AUTOINCREMENT");
            return;
        }
    }
}

} // namespace zlx::tsql
