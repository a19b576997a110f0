#include "platform/tsql/TokenLists.h"

namespace zlx::tsql {

std::vector<Tokens> SplitAtCommas(const Tokens& tokens, size_t first, size_t end) {
    std::vector<Tokens> items;
    if (first >= end) return items;
    items.emplace_back();
    int depth = 0;
    for (size_t i = first; i < end; ++i) {
        const Token& token = tokens[i];
        if (token.IsSymbol(u"("))
            ++depth;
        else if (token.IsSymbol(u")"))
            --depth;
        if (depth == 0 && token.IsSymbol(u",")) {
            items.emplace_back();
            continue;
        }
        items.back().push_back(token);
    }
    return items;
}

Tokens SelectList(const std::vector<Tokens>& expressions) {
    Tokens query{Token{TokenKind::Word, QStringLiteral("SELECT"), {}}};
    for (const Tokens& expression : expressions) {
        if (query.size() > 1) query.push_back(Token{TokenKind::Symbol, QStringLiteral(","), {}});
        const size_t first = query.size();
        query.insert(query.end(), expression.begin(), expression.end());
        if (query.size() > first) query[first].leading = QStringLiteral(" ");
    }
    return query;
}

} // namespace zlx::tsql
