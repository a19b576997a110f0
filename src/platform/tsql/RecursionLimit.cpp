#include "platform/tsql/RecursionLimit.h"

#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

namespace zlx::tsql {
namespace {

constexpr int kDefaultLimit = 100;

Token Word(const QString& text, const QString& leading = u" "_qs) {
    return Token{TokenKind::Word, text, leading};
}

// `names` separated by commas, each after one blank.
void AppendList(const Tokens& names, Tokens& out) {
    for (size_t i = 0; i < names.size(); ++i) {
        if (i > 0) out.push_back(Raw(u","_qs));
        Token name = names[i];
        name.leading = u" "_qs;
        out.push_back(name);
    }
}

} // namespace

int RecursionLimit::Limit() const {
    const size_t option = m_t.DepthZeroWord(0, u"OPTION");
    if (!m_t.SymbolAt(option + 1, u"(")) return kDefaultLimit;
    const size_t close = m_t.Close(option + 1);
    for (size_t i = option + 2; i + 1 < close; ++i)
        if (m_t[i].IsWord(u"MAXRECURSION") && m_t[i + 1].kind == TokenKind::Number)
            return m_t[i + 1].text.toInt();
    return kDefaultLimit;
}

void RecursionLimit::Apply() {
    if (!m_t.WordAt(0, u"WITH")) return;
    const int limit = Limit();
    if (limit <= 0) return;
    size_t p = m_t.WordAt(1, u"RECURSIVE") ? 2 : 1;
    Tokens out(m_t.begin(), m_t.begin() + static_cast<std::ptrdiff_t>(p));
    for (;;) {
        if (!m_t.At(p) || !IsName(m_t[p])) return;
        size_t as = p + 1;
        if (m_t.SymbolAt(as, u"(")) as = m_t.Close(as) + 1;
        if (!m_t.WordAt(as, u"AS") || !m_t.SymbolAt(as + 1, u"(")) return;
        const size_t close = m_t.Close(as + 1);
        if (close >= m_t.size() || !Emit(p, close, limit, out)) return;
        p = close + 1;
        if (!m_t.SymbolAt(p, u",")) break;
        out.push_back(m_t[p++]);
    }
    out.insert(out.end(), m_t.begin() + static_cast<std::ptrdiff_t>(p), m_t.end());
    m_t.Replace(std::move(out));
}

bool RecursionLimit::ReadsItself(size_t first, size_t last, const QString& name) const {
    for (size_t i = first; i < last; ++i)
        if (IsName(m_t[i]) && SameTextIgnoringCase(m_t[i].text, name) &&
            !m_t.SymbolAt(i - 1, u".") && !m_t.SymbolAt(i + 1, u"."))
            return true;
    return false;
}

std::optional<Tokens> RecursionLimit::ColumnNames(size_t listOpen, size_t bodyOpen) const {
    Tokens names;
    if (m_t.SymbolAt(listOpen, u"(")) {
        const size_t close = m_t.Close(listOpen);
        for (const auto& [first, last] : m_t.Items(listOpen, close, m_t.Commas(listOpen, close)))
            if (last > first) names.push_back(m_t[last - 1]);
        return names;
    }
    const size_t select = bodyOpen + 1;
    if (!m_t.WordAt(select, u"SELECT")) return std::nullopt;
    size_t from = m_t.Close(bodyOpen);
    for (const QStringView word : {u"FROM", u"UNION", u"EXCEPT", u"INTERSECT", u"WHERE"})
        from = std::min(from, m_t.DepthZeroWord(select + 1, word));
    const bool star =
        m_t.SymbolAt(from - 1, u"*") &&
        (from == select + 2 || (from == select + 4 && m_t.SymbolAt(select + 2, u".")));
    if (star) return StarColumns(from, m_t.Close(bodyOpen));
    // The select list as a parenthesised list: its items lie between `select` and `from`.
    size_t first = select + 1;
    for (size_t i = select + 1; i <= from; ++i) {
        if (i < from && !m_t[i].IsSymbol(u",")) {
            if (m_t[i].IsSymbol(u"(")) i = m_t.Close(i);
            continue;
        }
        const size_t last = i;
        if (last == first) return std::nullopt;
        if (last - first >= 3 && m_t[first + 1].IsSymbol(u"=") && IsName(m_t[first]))
            names.push_back(m_t[first]);
        else if (IsName(m_t[last - 1]))
            names.push_back(m_t[last - 1]);
        else
            return std::nullopt;
        first = i + 1;
    }
    return names;
}

Tokens RecursionLimit::StarColumns(size_t from, size_t end) const {
    const QString refused = QStringLiteral("SELECT * en una expresión de tabla común recursiva");
    const size_t name = from + 1;
    const size_t nameEnd = m_t.QualifiedNameEnd(name);
    if (!m_t.WordAt(from, u"FROM") || nameEnd == name || !m_context.tableColumns)
        ThrowUnsupported(refused);
    // One table: no JOIN, APPLY nor comma before the query ends.
    end = std::min(end, m_t.DepthZeroWord(nameEnd, u"UNION"));
    for (size_t i = nameEnd; i < end; ++i) {
        if (m_t[i].IsSymbol(u"("))
            i = m_t.Close(i);
        else if (m_t[i].IsSymbol(u",") || IsAnyWord(m_t[i], {u"JOIN", u"APPLY"}))
            ThrowUnsupported(refused);
    }
    const TableColumns columns = m_context.tableColumns(
        TokensToSql(Tokens(m_t.begin() + static_cast<std::ptrdiff_t>(name),
                           m_t.begin() + static_cast<std::ptrdiff_t>(nameEnd)))
            .trimmed());
    if (columns.empty()) ThrowUnsupported(refused);
    Tokens names;
    for (const TableColumn& column : columns)
        names.push_back(Token{TokenKind::QuotedName, column.name, u" "_qs});
    return names;
}

bool RecursionLimit::Emit(size_t name, size_t close, int limit, Tokens& out) {
    const QString cteName = m_t[name].text;
    const size_t listOpen = name + 1;
    const size_t bodyOpen = m_t.SymbolAt(listOpen, u"(") ? m_t.Close(listOpen) + 2 : name + 2;
    if (!ReadsItself(bodyOpen + 1, close, cteName)) {
        out.insert(out.end(), m_t.begin() + static_cast<std::ptrdiff_t>(name),
                   m_t.begin() + static_cast<std::ptrdiff_t>(close) + 1);
        return true;
    }
    const std::optional<Tokens> names = ColumnNames(listOpen, bodyOpen);
    if (!names || names->empty()) return false;
    const Token counted = Word(u"zlx_levels_"_qs + QString::number(name), m_t[name].leading);
    out.push_back(counted);
    out.push_back(Raw(u"("_qs, u" "_qs));
    AppendList(*names, out);
    out.push_back(Raw(u","_qs));
    out.push_back(Word(u"zlx_level"_qs));
    out.push_back(Raw(u")"_qs));
    out.push_back(Word(u"AS"_qs));
    out.push_back(Raw(u"("_qs, u" "_qs));
    // The body's queries, split at its UNIONs.
    size_t first = bodyOpen + 1;
    for (size_t i = first; i <= close; ++i) {
        if (i < close && !m_t[i].IsWord(u"UNION")) {
            if (m_t[i].IsSymbol(u"(")) i = m_t.Close(i);
            continue;
        }
        EmitMember(first, i, cteName, counted, limit, out);
        if (i == close) break;
        out.push_back(m_t[i]);
        first = i + 1;
        if (m_t.WordAt(first, u"ALL")) out.push_back(m_t[first++]);
    }
    out.push_back(Raw(u")"_qs));
    // The expression as the statement names it: the columns without their level.
    out.push_back(Raw(u","_qs));
    out.push_back(Word(cteName, u" "_qs));
    out.back().kind = m_t[name].kind;
    out.push_back(Raw(u"("_qs, u" "_qs));
    AppendList(*names, out);
    out.push_back(Raw(u")"_qs));
    out.push_back(Word(u"AS"_qs));
    out.push_back(Raw(u"("_qs, u" "_qs));
    out.push_back(Word(u"SELECT"_qs, QString()));
    AppendList(*names, out);
    out.push_back(Word(u"FROM"_qs));
    out.push_back(Word(counted.text));
    out.push_back(Raw(u")"_qs));
    return true;
}

void RecursionLimit::EmitMember(size_t first, size_t last, const QString& name,
                                const Token& counted, int limit, Tokens& out) const {
    const size_t from = std::min(m_t.DepthZeroWord(first, u"FROM"), last);
    size_t self = from;
    while (self < last && !(IsName(m_t[self]) && SameTextIgnoringCase(m_t[self].text, name) &&
                            !m_t.SymbolAt(self - 1, u".") && !m_t.SymbolAt(self + 1, u".")))
        ++self;
    const bool recursive = self < last;
    const bool aliased =
        recursive && (m_t.WordAt(self + 1, u"AS") ||
                      (m_t.At(self + 1) && IsName(m_t[self + 1]) && !IsClauseWord(m_t[self + 1])));
    // The name the recursive query reads the levels through: the alias, or the expression's.
    Token reader = !recursive ? Token{}
                   : aliased  ? m_t[m_t.WordAt(self + 1, u"AS") ? self + 2 : self + 1]
                              : m_t[self];
    reader.leading.clear();
    for (size_t i = first; i < last; ++i) {
        if (i == from && recursive) {
            out.push_back(Raw(u", zlx_recursion("_qs));
            out.push_back(reader);
            out.push_back(Raw(u".zlx_level + 1, "_qs + QString::number(limit) + u")"_qs));
        } else if (i == from) {
            out.push_back(Raw(u", 0"_qs));
        }
        if (i != self) {
            out.push_back(m_t[i]);
            continue;
        }
        out.push_back(Word(counted.text, m_t[i].leading));
        if (!aliased) {
            out.push_back(Word(u"AS"_qs));
            out.push_back(reader);
            out.back().leading = u" "_qs;
        }
    }
    if (from == last && !recursive) out.push_back(Raw(u", 0"_qs));
}

} // namespace zlx::tsql
