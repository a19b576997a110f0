#include "platform/tsql/ColumnAdditions.h"

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

std::vector<Tokens> EachAddition(const Tokens& statement) {
    const StatementTokens tokens(statement);
    if (!tokens.WordAt(0, u"ALTER") || !tokens.WordAt(1, u"TABLE")) return {};
    const size_t add = tokens.QualifiedNameEnd(2);
    if (!tokens.WordAt(add, u"ADD") || add + 1 >= tokens.size()) return {};
    // Commas outside parentheses, from the first addition to the end.
    std::vector<size_t> commas = tokens.Commas(add, tokens.size());
    if (commas.empty()) return {};
    commas.push_back(tokens.size());
    std::vector<Tokens> additions;
    size_t first = add + 1;
    for (const size_t comma : commas) {
        Tokens addition(statement.begin(),
                        statement.begin() + static_cast<std::ptrdiff_t>(add) + 1);
        addition.insert(addition.end(), statement.begin() + static_cast<std::ptrdiff_t>(first),
                        statement.begin() + static_cast<std::ptrdiff_t>(comma));
        if (addition.size() > add + 1) addition[add + 1].leading = QStringLiteral(" ");
        additions.push_back(std::move(addition));
        first = comma + 1;
    }
    return additions;
}

} // namespace zlx::tsql
