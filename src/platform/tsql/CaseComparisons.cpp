#include "platform/tsql/CaseComparisons.h"

#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {
namespace {

Token Word(const QString& text) {
    return Token{TokenKind::Word, text, u" "_qs};
}

// The tokens [first, end) of `t`, the first after one blank.
Tokens Copy(const StatementTokens& t, size_t first, size_t end) {
    Tokens copy(t.begin() + static_cast<std::ptrdiff_t>(first),
                t.begin() + static_cast<std::ptrdiff_t>(end));
    if (!copy.empty()) copy.front().leading = u" "_qs;
    return copy;
}

void Append(Tokens& out, const Tokens& tokens) {
    out.insert(out.end(), tokens.begin(), tokens.end());
}

} // namespace

void CaseComparisons::Rewrite() {
    // From the last back: an inner form is rewritten before the one whose operand holds it.
    for (size_t i = m_t.size(); i-- > 0;) {
        const Token& t = m_t[i];
        if (t.IsWord(u"CASE") && !m_t.WordAt(i + 1, u"WHEN"))
            RewriteSimpleCase(i);
        else if (t.IsWord(u"NULLIF") && m_t.SymbolAt(i + 1, u"("))
            RewriteNullIf(i);
        else if (t.IsWord(u"IIF") && m_t.SymbolAt(i + 1, u"("))
            RewriteIif(i);
        else if (t.IsWord(u"CHOOSE") && m_t.SymbolAt(i + 1, u"("))
            RewriteChoose(i);
    }
}

std::vector<size_t> CaseComparisons::CaseWords(size_t at) const {
    std::vector<size_t> words;
    int depth = 0;
    int nested = 0; // CASEs opened inside this one
    for (size_t k = at + 1; k < m_t.size(); ++k) {
        const Token& t = m_t[k];
        if (t.IsSymbol(u"(")) {
            ++depth;
        } else if (t.IsSymbol(u")")) {
            if (--depth < 0) break;
        } else if (depth == 0 && t.IsWord(u"CASE")) {
            ++nested;
        } else if (depth == 0 && t.IsWord(u"END")) {
            if (nested-- > 0) continue;
            words.push_back(k);
            return words;
        } else if (depth == 0 && nested == 0 && t.IsWord(u"WHEN")) {
            words.push_back(k);
        }
    }
    return {};
}

// CASE x WHEN y THEN ...: each WHEN compares x = y.
void CaseComparisons::RewriteSimpleCase(size_t at) {
    const std::vector<size_t> words = CaseWords(at);
    if (words.size() < 2 || words.front() == at + 1) return;
    const Tokens input = Copy(m_t, at + 1, words.front());
    for (size_t k = words.size() - 1; k-- > 0;) {
        Tokens comparison = input;
        comparison.push_back(Raw(u"="_qs, u" "_qs));
        m_t.Splice(words[k] + 1, words[k] + 1, comparison);
    }
    m_t.Splice(at + 1, words.front(), {});
}

void CaseComparisons::RewriteNullIf(size_t name) {
    const size_t close = m_t.Close(name + 1);
    const std::vector<size_t> commas = m_t.Commas(name + 1, close);
    if (commas.size() != 1) return;
    const Tokens first = Copy(m_t, name + 2, commas.front());
    Tokens out{Raw(u"("_qs, m_t[name].leading), Word(u"CASE"_qs), Word(u"WHEN"_qs)};
    Append(out, first);
    out.push_back(Raw(u"="_qs, u" "_qs));
    Append(out, Copy(m_t, commas.front() + 1, close));
    for (const QString& word : {u"THEN"_qs, u"NULL"_qs, u"ELSE"_qs})
        out.push_back(Word(word));
    Append(out, first);
    out.push_back(Word(u"END"_qs));
    out.push_back(Raw(u")"_qs));
    m_t.Splice(name, close + 1, out);
}

void CaseComparisons::RewriteIif(size_t name) {
    const size_t close = m_t.Close(name + 1);
    const std::vector<size_t> commas = m_t.Commas(name + 1, close);
    if (commas.size() != 2) return;
    Tokens out{Raw(u"("_qs, m_t[name].leading), Word(u"CASE"_qs), Word(u"WHEN"_qs)};
    Append(out, Copy(m_t, name + 2, commas[0]));
    out.push_back(Word(u"THEN"_qs));
    Append(out, Copy(m_t, commas[0] + 1, commas[1]));
    out.push_back(Word(u"ELSE"_qs));
    Append(out, Copy(m_t, commas[1] + 1, close));
    out.push_back(Word(u"END"_qs));
    out.push_back(Raw(u")"_qs));
    m_t.Splice(name, close + 1, out);
}

// CHOOSE(i, a, b ...): the i-th value, NULL out of range; an index of another number type is
// taken as the INT it converts to (2.9 chooses the second).
void CaseComparisons::RewriteChoose(size_t name) {
    const size_t close = m_t.Close(name + 1);
    const std::vector<size_t> commas = m_t.Commas(name + 1, close);
    if (commas.empty())
        ThrowStatementError(QStringLiteral("The choose function requires 2 to 254 arguments."),
                            ado::kNativeConcatArguments);
    Tokens index = Copy(m_t, name + 2, commas.front());
    const bool whole = index.size() == 1 && index.front().kind == TokenKind::Number &&
                       !index.front().text.contains(u'.');
    if (!whole) {
        Tokens cast{Word(u"CAST"_qs), Raw(u"("_qs)};
        Append(cast, index);
        Append(cast, {Word(u"AS"_qs), Word(u"INT"_qs), Raw(u")"_qs)});
        index = std::move(cast);
    }
    Tokens out{Raw(u"("_qs, m_t[name].leading), Word(u"CASE"_qs)};
    for (size_t k = 0; k < commas.size(); ++k) {
        out.push_back(Word(u"WHEN"_qs));
        Append(out, index);
        out.push_back(Raw(u"="_qs, u" "_qs));
        out.push_back(Token{TokenKind::Number, QString::number(k + 1), u" "_qs});
        out.push_back(Word(u"THEN"_qs));
        Append(out, Copy(m_t, commas[k] + 1, k + 1 < commas.size() ? commas[k + 1] : close));
    }
    out.push_back(Word(u"END"_qs));
    out.push_back(Raw(u")"_qs));
    m_t.Splice(name, close + 1, out);
}

} // namespace zlx::tsql
