#include "platform/tsql/DataStatementRewriter.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

namespace zlx::tsql {

void DataStatementRewriter::Rewrite() {
    PrepareInsertInto();
    PrepareWriteTop();
    PrepareDeleteJoin();
    PrepareUpdateJoin();
    PrepareDefaultValues();
}

// INSERT t ...: the engines require INTO.
void DataStatementRewriter::PrepareInsertInto() {
    if (!m_t.WordAt(0, u"INSERT") || m_t.WordAt(1, u"INTO") || !m_t.At(1) || !IsName(m_t[1]))
        return;
    m_t.insert(m_t.begin() + 1, Token{TokenKind::Word, QStringLiteral("INTO"), m_t[1].leading});
}

void DataStatementRewriter::PrepareDefaultValues() {
    if (m_dialect.HasDefaultValues() || !m_t.WordAt(0, u"INSERT")) return;
    size_t values = 0;
    while (values < m_t.size() && !m_t[values].IsWord(u"VALUES"))
        ++values;
    if (values == m_t.size() || !m_t.SymbolAt(values + 1, u"(")) return;
    const size_t valuesClose = m_t.Close(values + 1);
    auto valueCommas = m_t.Commas(values + 1, valuesClose);
    std::vector<std::pair<size_t, size_t>> items = m_t.Items(values + 1, valuesClose, valueCommas);
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
    const size_t columnsClose = m_t.Close(columnsOpen);
    auto columnItems = m_t.Items(columnsOpen, columnsClose, m_t.Commas(columnsOpen, columnsClose));
    if (columnItems.size() != items.size()) return; // the engine reports the mismatch
    if (defaults.size() == items.size()) {
        // Every value is DEFAULT: the whole row takes its defaults.
        Tokens rebuilt(m_t.begin(), m_t.begin() + columnsOpen);
        rebuilt.push_back(Raw(QStringLiteral("DEFAULT VALUES"), u" "_qs));
        rebuilt.insert(rebuilt.end(), m_t.begin() + valuesClose + 1, m_t.end());
        m_t.Replace(std::move(rebuilt));
        return;
    }
    RemoveItems(items, defaults); // later in the text first
    RemoveItems(columnItems, defaults);
}

void DataStatementRewriter::PrepareWriteTop() {
    const bool isDelete = m_t.WordAt(0, u"DELETE");
    if (!(isDelete || m_t.WordAt(0, u"UPDATE")) || !m_t.WordAt(1, u"TOP")) return;
    size_t next = 3;
    QString count;
    if (m_t.SymbolAt(2, u"(")) {
        next = m_t.Close(2) + 1;
        count = TokensToSql(Tokens(m_t.begin() + 3, m_t.begin() + next - 1)).trimmed();
    } else if (m_t.At(2) && m_t.At(2)->kind == TokenKind::Number) {
        count = m_t[2].text;
    } else {
        ThrowStatementError(QStringLiteral("Incorrect syntax near 'TOP'."), ado::kNativeSyntax);
    }
    if (m_t.WordAt(next, u"PERCENT")) ThrowUnsupported(QStringLiteral("TOP ... PERCENT"));
    if (isDelete && m_t.WordAt(next, u"FROM")) ++next;
    const size_t tableEnd = m_t.QualifiedNameEnd(next);
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
    rebuilt.insert(rebuilt.end(), m_t.begin() + next, m_t.begin() + (isDelete ? where : tableEnd));
    rebuilt.insert(rebuilt.end(), m_t.begin() + where, m_t.end());
    rebuilt.push_back(Raw(QStringLiteral(" LIMIT ") + count));
    rebuilt.push_back(Raw(QStringLiteral(")")));
    m_t.Replace(std::move(rebuilt));
}

void DataStatementRewriter::PrepareDeleteJoin() {
    if (!m_t.WordAt(0, u"DELETE")) return;
    const size_t target = m_t.WordAt(1, u"FROM") ? 2 : 1;
    const size_t targetEnd = m_t.QualifiedNameEnd(target);
    if (targetEnd != target + 1 || !m_t.WordAt(targetEnd, u"FROM")) return;
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
    m_t.Replace(std::move(rebuilt));
}

void DataStatementRewriter::PrepareUpdateJoin() {
    if (!m_t.WordAt(0, u"UPDATE") || m_t.QualifiedNameEnd(1) != 2 || !m_t.WordAt(2, u"SET")) return;
    const size_t from = m_t.DepthZeroWord(3, u"FROM");
    if (from == m_t.size()) return;
    const size_t where = m_t.DepthZeroWord(from, u"WHERE");
    const size_t table = from + 1;
    if (m_t.QualifiedNameEnd(table) != table + 1)
        ThrowUnsupported(QStringLiteral("UPDATE ... FROM"));
    size_t next = table + 1;
    if (m_t.WordAt(next, u"AS")) ++next;
    const bool aliased = m_t.At(next) && IsName(*m_t.At(next)) && !IsClauseWord(*m_t.At(next));
    const Token& named = aliased ? m_t[next] : m_t[table];
    if (named.text.compare(m_t[1].text, Qt::CaseInsensitive) != 0)
        ThrowUnsupported(QStringLiteral("UPDATE ... FROM sin la tabla actualizada"));
    if (aliased) ++next;
    Tokens joined, conditions;
    while (next < where) {
        if (m_t.WordAt(next, u"INNER")) ++next;
        if (!m_t.WordAt(next, u"JOIN"))
            ThrowUnsupported(QStringLiteral("UPDATE ... FROM ... ") + m_t[next].text);
        const size_t on = m_t.DepthZeroWord(next, u"ON");
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
        if (m_t.SymbolAt(k + 1, u".") && m_t.At(k + 2) && IsName(m_t[k + 2]) &&
            m_t.SymbolAt(k + 3, u"=") && (m_t[k - 1].IsWord(u"SET") || m_t[k - 1].IsSymbol(u","))) {
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
    m_t.Replace(std::move(rebuilt));
}

void DataStatementRewriter::AppendCondition(Tokens& conditions, size_t first, size_t last) const {
    if (!conditions.empty())
        conditions.push_back(Token{TokenKind::Word, QStringLiteral("AND"), QStringLiteral(" ")});
    conditions.push_back(Raw(QStringLiteral("("), QStringLiteral(" ")));
    conditions.insert(conditions.end(), m_t.begin() + first, m_t.begin() + last);
    conditions.push_back(Raw(QStringLiteral(")")));
}

bool DataStatementRewriter::IsJoinStart(size_t i) const {
    for (QStringView word : {u"JOIN", u"INNER", u"LEFT", u"RIGHT", u"FULL", u"CROSS"})
        if (m_t.WordAt(i, word)) return true;
    return m_t.SymbolAt(i, u",");
}

size_t DataStatementRewriter::TableOfAlias(size_t from, const QString& alias) const {
    for (size_t k = from; k < m_t.size(); ++k) {
        if (!IsName(m_t[k]) || m_t[k].text.compare(alias, Qt::CaseInsensitive) != 0) continue;
        const size_t before = k > from && m_t[k - 1].IsWord(u"AS") ? k - 1 : k;
        if (before > from && IsName(m_t[before - 1]) && !IsClauseWord(m_t[before - 1]))
            return before - 1;
        return k;
    }
    ThrowUnsupported(QStringLiteral("DELETE ") + alias + QStringLiteral(" FROM"));
}

void DataStatementRewriter::RemoveItems(const std::vector<std::pair<size_t, size_t>>& items,
                                        const std::vector<size_t>& which) {
    for (auto k = which.rbegin(); k != which.rend(); ++k) {
        // Remove the item with the comma before it (or after it, for the first item).
        const auto [first, end] = items[*k];
        const size_t from = *k == 0 ? first : first - 1;
        const size_t to = *k == 0 ? end + 1 : end;
        m_t.erase(m_t.begin() + from, m_t.begin() + to);
    }
}

} // namespace zlx::tsql
