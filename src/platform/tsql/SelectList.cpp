#include "platform/tsql/SelectList.h"

#include <QStringList>

namespace zlx::tsql {
namespace {

bool EndsList(const Token& token) {
    static const QStringList words = {QStringLiteral("FROM"),      QStringLiteral("WHERE"),
                                      QStringLiteral("GROUP"),     QStringLiteral("HAVING"),
                                      QStringLiteral("ORDER"),     QStringLiteral("UNION"),
                                      QStringLiteral("OPTION"),    QStringLiteral("EXCEPT"),
                                      QStringLiteral("INTERSECT"), QStringLiteral("INTO")};
    return token.kind == TokenKind::Word && words.contains(token.text, Qt::CaseInsensitive);
}

// Past the closing parenthesis of the "(" at `open`.
size_t PastParentheses(const Tokens& tokens, size_t open) {
    int depth = 0;
    for (size_t i = open; i < tokens.size(); ++i) {
        if (tokens[i].IsSymbol(u"("))
            ++depth;
        else if (tokens[i].IsSymbol(u")") && --depth == 0)
            return i + 1;
    }
    return tokens.size();
}

} // namespace

SelectList SelectList::Read(const Tokens& select) {
    SelectList list;
    size_t i = 1;
    if (i < select.size() && (select[i].IsWord(u"DISTINCT") || select[i].IsWord(u"ALL"))) ++i;
    if (i < select.size() && select[i].IsWord(u"TOP")) {
        ++i;
        i = i < select.size() && select[i].IsSymbol(u"(") ? PastParentheses(select, i) : i + 1;
    }
    list.head = i;
    size_t start = i;
    int depth = 0;
    for (; i < select.size(); ++i) {
        const Token& token = select[i];
        if (token.IsSymbol(u"("))
            ++depth;
        else if (token.IsSymbol(u")"))
            --depth;
        else if (depth == 0 && EndsList(token))
            break;
        else if (depth == 0 && token.IsSymbol(u",")) {
            list.items.emplace_back(start, i);
            start = i + 1;
        }
    }
    if (i > start) list.items.emplace_back(start, i);
    list.end = i;
    return list;
}

} // namespace zlx::tsql
