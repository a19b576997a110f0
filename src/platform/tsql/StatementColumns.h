#pragma once
// The columns a statement's names stand for, looked up as SQL Server binds them: a qualified
// name (t.c, alias.c) in the table or alias it names, a bare name in the tables of its own query
// (FROM, JOIN, UPDATE t, DELETE t) and, when none of them has it, in those of the queries around
// it. A name that no table of the statement holds (a column of a view or of a table the session
// cannot read, a select list's alias) is answered by the session's questions about that name in
// the whole database (TranslationContext::isTextColumn ...).

#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TranslationContext.h"

#include <optional>
#include <vector>

namespace zlx::tsql {

class StatementColumns {
public:
    // `tokens` must not change while questions are asked: the tables are read at the first one.
    StatementColumns(const StatementTokens& tokens, const TranslationContext& context);

    // The column of a table of the statement that the name at `i` stands for (`i` is c, or the
    // c of t.c); nullptr when no table the statement names has it.
    const TableColumn* Find(size_t i) const;

    // What the name at `i` holds, as Find answers or else as the session answers for the name.
    bool IsText(size_t i) const;
    bool IsDate(size_t i) const;
    bool IsInteger(size_t i) const;
    // The T-SQL type in upper case without blanks ("INT", "VARCHAR(10)"); empty: not known.
    QString Type(size_t i) const;
    // A NOT NULL column still reads as NULL on the side of an outer join that found no row.
    bool MayBeNull(size_t i) const;

private:
    struct NamedTable {
        QString written; // as the statement writes it (dbo.t, db..t)
        QString name;    // its last part
        QString alias;
        size_t query;
    };
    struct Query {
        size_t outer;     // the query around it; kNone for the statement's own
        bool outerJoined; // LEFT, RIGHT or FULL joins
        bool unreadable;  // some table's columns are not known
    };
    static constexpr size_t kNone = static_cast<size_t>(-1);

    void ReadTables() const;
    void ReadTable(size_t name, size_t query) const;
    const TableColumns& ColumnsOf(size_t table) const;
    const TableColumn* FindQualified(const QString& qualifier, const QString& column,
                                     size_t query) const;
    const TableColumn* FindBare(const QString& column, size_t query) const;
    // The session's answer for the name at `i`, `unset` when it has no such question.
    static bool Ask(const std::function<bool(const QString&)>& question, const Token& name,
                    bool unset);

    const StatementTokens& m_t;
    const TranslationContext& m_context;
    mutable bool m_read = false;
    mutable std::vector<size_t> m_queryOf; // the query each token belongs to
    mutable std::vector<Query> m_queries;
    mutable std::vector<NamedTable> m_tables;
    mutable std::vector<std::optional<TableColumns>> m_columns; // read on first use
};

} // namespace zlx::tsql
