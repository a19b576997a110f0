#include "platform/tsql/UnsupportedClauses.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {

void UnsupportedClauses::Check() const {
    for (size_t i = 0; i < m_t.size(); ++i) {
        QString clause = ClauseAt(i);
        if (clause.isEmpty()) clause = EngineClauseAt(i);
        if (!clause.isEmpty()) ThrowUnsupported(clause);
    }
}

QString UnsupportedClauses::ClauseAt(size_t i) const {
    const Token& token = m_t[i];
    if (token.kind != TokenKind::Word) return {};
    if (i == 0 && token.IsWord(u"MERGE")) return QStringLiteral("MERGE");
    if (token.IsWord(u"OUTPUT") &&
        (m_t.WordAt(i + 1, u"INSERTED") || m_t.WordAt(i + 1, u"DELETED")))
        return QStringLiteral("OUTPUT");
    if ((token.IsWord(u"PIVOT") || token.IsWord(u"UNPIVOT")) && m_t.SymbolAt(i + 1, u"("))
        return token.text.toUpper();
    if ((token.IsWord(u"CROSS") || token.IsWord(u"OUTER")) && m_t.WordAt(i + 1, u"APPLY"))
        return token.text.toUpper() + QStringLiteral(" APPLY");
    if (token.IsWord(u"FOR") &&
        (m_t.WordAt(i + 1, u"XML") || m_t.WordAt(i + 1, u"JSON") || m_t.WordAt(i + 1, u"BROWSE")))
        return QStringLiteral("FOR ") + m_t[i + 1].text.toUpper();
    if (token.IsWord(u"WITH") && (m_t.WordAt(i + 1, u"ROLLUP") || m_t.WordAt(i + 1, u"CUBE")))
        return QStringLiteral("WITH ") + m_t[i + 1].text.toUpper();
    return {};
}

QString UnsupportedClauses::EngineClauseAt(size_t i) const {
    const Token& token = m_t[i];
    if (token.kind != TokenKind::Word) return {};
    const bool call = m_t.SymbolAt(i + 1, u"(");
    QString clause;
    if (call && (token.IsWord(u"ROLLUP") || token.IsWord(u"CUBE") || token.IsWord(u"GROUPING")))
        clause = token.text.toUpper();
    else if (token.IsWord(u"GROUPING") && m_t.WordAt(i + 1, u"SETS"))
        clause = QStringLiteral("GROUPING SETS");
    else if (call && m_t.IsComparison(i - 1) &&
             (token.IsWord(u"ALL") || token.IsWord(u"ANY") || token.IsWord(u"SOME")))
        clause = token.text.toUpper();
    return !clause.isEmpty() && m_dialect.LacksClause(clause) ? clause : QString();
}

} // namespace zlx::tsql
