#pragma once
// SQL Server stops a common table expression that reads itself after MAXRECURSION levels
// (OPTION (MAXRECURSION n), 100 when not given, 0 for none) with error 530; the engines recurse
// without end. Each such expression is made to carry its level, and a guard on every row it
// adds raises the error once a row lies past the limit.

#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TranslationContext.h"

#include <optional>

namespace zlx::tsql {

class RecursionLimit {
public:
    RecursionLimit(StatementTokens& tokens, const TranslationContext& context)
        : m_t(tokens), m_context(context) {}

    // Rewrites WITH [RECURSIVE] name [(columns)] AS (anchor UNION ALL recursive) ... so that the
    // levels are counted; a statement whose shape it does not know is left as written.
    void Apply();

private:
    // The statement's MAXRECURSION, 100 when it gives none; 0: no limit.
    int Limit() const;
    // Appends the expression at `name` (its body closing at `close`) to `out`; false when its
    // column names cannot be told.
    bool Emit(size_t name, size_t close, int limit, Tokens& out);
    bool ReadsItself(size_t first, size_t last, const QString& name) const;
    // The names of the expression's columns: its list, or the first query's select list.
    std::optional<Tokens> ColumnNames(size_t listOpen, size_t bodyOpen) const;
    // The columns of the one table that the FROM at `from` names, which the first query's * (or
    // t.*) stands for; refused when the FROM names more or a table whose columns are not known.
    Tokens StarColumns(size_t from, size_t end) const;
    // A query of the body with its level: 0 in the anchors, its reader's level plus one in
    // the query that reads the expression `name`, whose reference then reads `counted`.
    void EmitMember(size_t first, size_t last, const QString& name, const Token& counted, int limit,
                    Tokens& out) const;

    StatementTokens& m_t;
    const TranslationContext& m_context;
};

} // namespace zlx::tsql
