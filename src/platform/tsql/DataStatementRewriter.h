#pragma once
// The forms of INSERT, UPDATE and DELETE that the engines spell otherwise, rewritten before the
// statement is written: INSERT without INTO, DELETE/UPDATE TOP (n), DELETE x FROM t x JOIN ...,
// UPDATE ... FROM with joins, and DEFAULT in VALUES on an engine without it.

#include "platform/tsql/StatementTokens.h"

#include <vector>

namespace zlx::tsql {

class EngineDialect;

class DataStatementRewriter {
public:
    DataStatementRewriter(StatementTokens& tokens, const EngineDialect& dialect)
        : m_t(tokens), m_dialect(dialect) {}

    // Edits the statement in place when it has one of these forms.
    void Rewrite();

private:
    void PrepareInsertInto();

    // Without DEFAULT inside VALUES, the column and its value leave the list so that the
    // column takes its default.
    void PrepareDefaultValues();

    // DELETE TOP (n) [FROM] t [WHERE c] and UPDATE TOP (n) t SET ... [WHERE c] change the
    // first n rows the engine finds, picked by its row locator in a subquery.
    void PrepareWriteTop();

    // DELETE [FROM] x FROM t x JOIN u ON ... [WHERE c]: the rows of t that the query picks,
    // by the engine's row locator.
    void PrepareDeleteJoin();

    // UPDATE x SET ... FROM t [AS] x [INNER] JOIN u ON c ... [WHERE w], x the first table or
    // its alias: UPDATE t [AS x] SET ... FROM u, ... WHERE (c) AND ... AND (w), the form both
    // engines take. Outer joins have no such form.
    void PrepareUpdateJoin();

    // (condition) joined to those before it by AND.
    void AppendCondition(Tokens& conditions, size_t first, size_t last) const;

    bool IsJoinStart(size_t i) const;

    // The table of the FROM clause starting at `from` that `alias` names: "t x", "t AS x", or t
    // itself.
    size_t TableOfAlias(size_t from, const QString& alias) const;

    void RemoveItems(const std::vector<std::pair<size_t, size_t>>& items,
                     const std::vector<size_t>& which);

    StatementTokens& m_t;
    const EngineDialect& m_dialect;
};

} // namespace zlx::tsql
