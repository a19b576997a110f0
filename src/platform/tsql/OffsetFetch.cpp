#include "platform/tsql/OffsetFetch.h"

#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {
namespace {

// No row count reaches it: LIMIT needs a number where T-SQL leaves FETCH out.
const QString kEveryRow = QStringLiteral("9223372036854775807");

[[noreturn]] void ThrowSyntaxNear(const QString& text) {
    ThrowStatementError(u"Incorrect syntax near '"_qs + text + u"'."_qs, 102);
}

} // namespace

void OffsetFetch::Rewrite() {
    for (size_t i = 0; i < m_t.size(); ++i) {
        if (IsClause(i)) RewriteAt(i);
    }
}

// OFFSET n ROWS; a column named Offset is left alone.
bool OffsetFetch::IsClause(size_t i) const {
    if (!m_t[i].IsWord(u"OFFSET") || i + 1 == m_t.size()) return false;
    const size_t first = m_t.SymbolAt(i + 1, u"-") ? i + 2 : i + 1;
    const size_t end = m_t.ExpressionEnd(first);
    return end > first && (m_t.WordAt(end, u"ROW") || m_t.WordAt(end, u"ROWS"));
}

void OffsetFetch::RewriteAt(size_t offset) {
    if (!QueryHas(offset, u"ORDER")) ThrowSyntaxNear(m_t[offset].text);
    if (QueryHas(offset, u"TOP"))
        ThrowStatementError(u"A TOP cannot be used in the same query or sub-query as an OFFSET."_qs,
                            10741);
    const size_t skipEnd =
        m_t.ExpressionEnd(m_t.SymbolAt(offset + 1, u"-") ? offset + 2 : offset + 1);
    CheckCount(offset + 1, skipEnd, false);
    size_t end = skipEnd + 1;
    Tokens limit{Raw(kEveryRow)};
    if (m_t.WordAt(end, u"FETCH")) {
        if (!m_t.WordAt(end + 1, u"NEXT") && !m_t.WordAt(end + 1, u"FIRST"))
            ThrowSyntaxNear(m_t[end].text);
        const size_t takeEnd = m_t.ExpressionEnd(end + 2);
        CheckCount(end + 2, takeEnd, true);
        limit = Copy(end + 2, takeEnd);
        end = RowsWordEnd(takeEnd);
        if (!m_t.WordAt(end, u"ONLY")) ThrowSyntaxNear(m_t.At(end) ? m_t[end].text : u"ROWS"_qs);
        ++end;
    }
    Tokens clause{Token{TokenKind::Word, u"LIMIT"_qs, m_t[offset].leading}, Raw(u"("_qs, u" "_qs)};
    clause.insert(clause.end(), limit.begin(), limit.end());
    clause.push_back(Raw(u")"_qs));
    clause.push_back(Token{TokenKind::Word, u"OFFSET"_qs, u" "_qs});
    clause.push_back(Raw(u"("_qs));
    const Tokens skip = Copy(offset + 1, skipEnd);
    clause.insert(clause.end(), skip.begin(), skip.end());
    clause.push_back(Raw(u")"_qs));
    m_t.erase(m_t.begin() + offset, m_t.begin() + end);
    for (size_t k = 0; k < clause.size(); ++k)
        m_t.insert(m_t.begin() + offset + k, clause[k]);
}

size_t OffsetFetch::RowsWordEnd(size_t i) const {
    if (!m_t.WordAt(i, u"ROW") && !m_t.WordAt(i, u"ROWS"))
        ThrowSyntaxNear(m_t.At(i) ? m_t[i].text : u"OFFSET"_qs);
    return i + 1;
}

void OffsetFetch::CheckCount(size_t first, size_t end, bool fetch) const {
    const bool negative = m_t.SymbolAt(first, u"-");
    const size_t number = negative ? first + 1 : first;
    if (number + 1 != end || m_t[number].kind != TokenKind::Number) return;
    const QString& text = m_t[number].text;
    if (!fetch && (text.contains(u'.') || text.contains(u'e', Qt::CaseInsensitive)))
        ThrowStatementError(
            u"The number of rows provided for an OFFSET clause must be an integer."_qs, 10743);
    const bool zero = text.toLongLong() == 0;
    if (fetch && (negative || zero))
        ThrowStatementError(
            u"The number of rows provided for a FETCH clause must be greater then zero."_qs, 10744);
    if (!fetch && negative && !zero)
        ThrowStatementError(u"The offset specified in an OFFSET clause may not be negative."_qs,
                            10742);
}

bool OffsetFetch::QueryHas(size_t offset, QStringView word) const {
    const size_t open = m_t.Open(offset);
    return m_t.DepthZeroWord(open == offset ? 0 : open + 1, word) < offset;
}

Tokens OffsetFetch::Copy(size_t first, size_t end) const {
    return Tokens(m_t.begin() + first, m_t.begin() + end);
}

} // namespace zlx::tsql
