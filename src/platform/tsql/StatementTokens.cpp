#include "platform/tsql/StatementTokens.h"

#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

namespace zlx::tsql {

Token Raw(const QString& text, const QString& leading) {
    return Token{TokenKind::Symbol, text, leading};
}

bool IsTextFunction(const Token& token) {
    static const QStringList names = {
        QStringLiteral("RTRIM"),     QStringLiteral("LTRIM"),     QStringLiteral("RIGHT"),
        QStringLiteral("LEFT"),      QStringLiteral("SUBSTRING"), QStringLiteral("UPPER"),
        QStringLiteral("LOWER"),     QStringLiteral("REPLACE"),   QStringLiteral("STR"),
        QStringLiteral("REPLICATE"), QStringLiteral("SPACE"),     QStringLiteral("REVERSE"),
        QStringLiteral("STUFF"),     QStringLiteral("CHAR"),      QStringLiteral("NCHAR"),
        QStringLiteral("CONCAT"),    QStringLiteral("QUOTENAME"), QStringLiteral("FORMAT")};
    return token.kind == TokenKind::Word && names.contains(token.text, Qt::CaseInsensitive);
}

bool IsName(const Token& token) {
    return token.kind == TokenKind::Word || token.kind == TokenKind::QuotedName;
}

bool IsAnyWord(const Token& token, std::initializer_list<QStringView> words) {
    for (QStringView word : words)
        if (token.IsWord(word)) return true;
    return false;
}

bool IsClauseWord(const Token& token) {
    for (QStringView word : {u"FROM", u"JOIN", u"ON", u"WHERE", u"INNER", u"OUTER", u"LEFT",
                             u"RIGHT", u"CROSS", u"AND", u"OR"})
        if (token.IsWord(word)) return true;
    return false;
}

bool IsValuesRowItem(const Tokens& tokens, size_t i) {
    const auto symbolAt = [&tokens](size_t k, QStringView symbol) {
        return k < tokens.size() && tokens[k].IsSymbol(symbol);
    };
    if (!(symbolAt(i - 1, u"(") || symbolAt(i - 1, u",")) ||
        !(symbolAt(i + 1, u")") || symbolAt(i + 1, u",")))
        return false;
    size_t open = i;
    for (int depth = 0; open-- > 0;) {
        if (tokens[open].IsSymbol(u")"))
            ++depth;
        else if (tokens[open].IsSymbol(u"(") && depth-- == 0)
            break;
    }
    return open > 0 && open < i &&
           (tokens[open - 1].IsWord(u"VALUES") || tokens[open - 1].IsSymbol(u","));
}

size_t StatementTokens::Close(size_t open) const {
    int depth = 0;
    for (size_t i = open; i < m_t.size(); ++i) {
        if (m_t[i].IsSymbol(u"("))
            ++depth;
        else if (m_t[i].IsSymbol(u")") && --depth == 0)
            return i;
    }
    ThrowStatementError(QStringLiteral("Incorrect syntax near '('."), ado::kNativeSyntax);
}

std::vector<size_t> StatementTokens::Commas(size_t open, size_t close) const {
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

size_t StatementTokens::DepthZeroWord(size_t from, QStringView word) const {
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

size_t StatementTokens::QualifiedNameEnd(size_t name) const {
    if (!At(name) || !IsName(*At(name))) return name;
    size_t end = name + 1;
    while (SymbolAt(end, u".")) {
        ++end;
        if (At(end) && IsName(*At(end))) ++end;
    }
    return end;
}

std::pair<size_t, size_t> StatementTokens::ColumnDefinitionAround(size_t i) const {
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

std::vector<std::pair<size_t, size_t>>
StatementTokens::Items(size_t open, size_t close, const std::vector<size_t>& commas) const {
    std::vector<std::pair<size_t, size_t>> items;
    size_t start = open + 1;
    for (size_t comma : commas) {
        items.emplace_back(start, comma);
        start = comma + 1;
    }
    items.emplace_back(start, close);
    return items;
}

size_t StatementTokens::ValuePosition(size_t i) const {
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

QStringList StatementTokens::ColumnList(size_t open) const {
    QStringList names;
    const size_t close = Close(open);
    for (const auto& [first, last] : Items(open, close, Commas(open, close)))
        names << (last > first ? m_t[last - 1].text : QString());
    return names;
}

bool StatementTokens::IsComparison(size_t i) const {
    static const QStringList comparisons = {u"="_qs, u"<>"_qs, u"!="_qs, u"<"_qs,
                                            u">"_qs, u"<="_qs, u">="_qs};
    const Token* token = At(i); // i may have wrapped round from 0 - 1: At answers nullptr
    return token && token->kind == TokenKind::Symbol && comparisons.contains(token->text);
}

size_t StatementTokens::PrimaryEnd(size_t i) const {
    const Token* first = At(i);
    if (!first) return i;
    if (first->IsSymbol(u"(")) return Close(i) + 1;
    if (first->kind == TokenKind::String || first->kind == TokenKind::Number) return i + 1;
    if (first->kind != TokenKind::Word && first->kind != TokenKind::QuotedName) return i;
    if (SymbolAt(i + 1, u"(")) return WindowEnd(Close(i + 1) + 1);
    size_t end = i + 1;
    while (SymbolAt(end, u".") && At(end + 1) && !At(end + 1)->IsSymbol(u"."))
        end += 2;
    return end;
}

size_t StatementTokens::WindowEnd(size_t after) const {
    return WordAt(after, u"OVER") && SymbolAt(after + 1, u"(") ? Close(after + 1) + 1 : after;
}

size_t StatementTokens::PrimaryStart(size_t last) const {
    if (SymbolAt(last, u")")) {
        const size_t open = Open(last);
        if (open >= 2 && m_t[open - 1].IsWord(u"OVER") && m_t[open - 2].IsSymbol(u")"))
            return PrimaryStart(open - 2);
        // A word before the parenthesis names a call, unless it is a keyword (IN (...)).
        static const QStringList keywords = {u"IN"_qs,   u"NOT"_qs,  u"EXISTS"_qs, u"WHEN"_qs,
                                             u"THEN"_qs, u"ELSE"_qs, u"SELECT"_qs, u"VALUES"_qs};
        const bool call = open > 0 && open < last && m_t[open - 1].kind == TokenKind::Word &&
                          !IsClauseWord(m_t[open - 1]) &&
                          !keywords.contains(m_t[open - 1].text, Qt::CaseInsensitive);
        return call ? open - 1 : open;
    }
    if (!At(last) || !IsName(m_t[last])) return last;
    size_t first = last;
    while (first >= 2 && m_t[first - 1].IsSymbol(u".") && IsName(m_t[first - 2]))
        first -= 2;
    return first;
}

size_t StatementTokens::Open(size_t i) const {
    for (size_t k = i, depth = 0; k-- > 0;) {
        if (m_t[k].IsSymbol(u")"))
            ++depth;
        else if (m_t[k].IsSymbol(u"(") && depth-- == 0)
            return k;
    }
    return i;
}

size_t StatementTokens::ExpressionEnd(size_t i) const {
    static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs, u"/"_qs, u"%"_qs, u"||"_qs};
    size_t end = PrimaryEnd(i);
    while (end > i && At(end) && At(end)->kind == TokenKind::Symbol &&
           operators.contains(At(end)->text)) {
        const size_t next = PrimaryEnd(end + 1);
        if (next == end + 1) break;
        end = next;
    }
    return end;
}

const Token* StatementTokens::NamedColumn(size_t first, size_t end) const {
    for (size_t i = first; i < end; i += 2) {
        if (m_t[i].kind != TokenKind::Word && m_t[i].kind != TokenKind::QuotedName) return nullptr;
        if (i + 1 == end) return &m_t[i];
        if (!m_t[i + 1].IsSymbol(u".")) return nullptr;
    }
    return nullptr;
}

QString StatementTokens::ConversionType(size_t name) const {
    const bool cast = WordAt(name, u"CAST");
    if (!(cast || WordAt(name, u"CONVERT")) || !SymbolAt(name + 1, u"(")) return {};
    const size_t close = Close(name + 1);
    const std::vector<size_t> commas = Commas(name + 1, close);
    const size_t first = cast ? DepthZeroWord(name + 2, u"AS") + 1 : name + 2;
    const size_t last = cast || commas.empty() ? close : commas.front();
    if (first >= last || last > size()) return {};
    return TokensToSql(Tokens(m_t.begin() + static_cast<std::ptrdiff_t>(first),
                              m_t.begin() + static_cast<std::ptrdiff_t>(last)))
        .simplified()
        .remove(u' ')
        .toUpper();
}

} // namespace zlx::tsql
