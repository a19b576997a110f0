#include "platform/tsql/NamedDefaults.h"

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

std::vector<NamedDefault> NamedDefaultsOf(const Tokens& statement) {
    const StatementTokens tokens(statement);
    const bool create = tokens.WordAt(0, u"CREATE") && tokens.WordAt(1, u"TABLE");
    const size_t nameEnd = tokens.QualifiedNameEnd(2);
    const bool add =
        tokens.WordAt(0, u"ALTER") && tokens.WordAt(1, u"TABLE") && tokens.WordAt(nameEnd, u"ADD");
    if (!create && !add) return {};
    std::vector<NamedDefault> named;
    for (size_t i = nameEnd + 1; i + 3 < tokens.size(); ++i) {
        if (!tokens[i].IsWord(u"CONSTRAINT") || !tokens.WordAt(i + 2, u"DEFAULT")) continue;
        // The column begins its definition: after "(", ",", or ADD.
        size_t first = tokens.ColumnDefinitionAround(i).first;
        if (first <= nameEnd) first = nameEnd + 1;
        if (first != i && IsName(tokens[first]))
            named.push_back({tokens[first].text, tokens[i + 1].text});
    }
    return named;
}

QString DroppedConstraint(const Tokens& statement) {
    const StatementTokens tokens(statement);
    if (!tokens.WordAt(0, u"ALTER") || !tokens.WordAt(1, u"TABLE")) return {};
    const size_t drop = tokens.QualifiedNameEnd(2);
    if (!tokens.WordAt(drop, u"DROP") || !tokens.WordAt(drop + 1, u"CONSTRAINT") ||
        drop + 3 != tokens.size() || !IsName(tokens[drop + 2]))
        return {};
    return tokens[drop + 2].text;
}

} // namespace zlx::tsql
