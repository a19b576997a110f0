#pragma once
// TEXT and NTEXT values, which SQL Server does not compare or sort: a column of those types
// compared with =, <>, <, >, <= or >= is error 402 ("The data types text and varchar are
// incompatible in the equal to operator."), one in ORDER BY or GROUP BY error 306, where the
// engines, whose long texts are ordinary texts, would answer. LIKE, IS NULL and the functions
// that take such a value (DATALENGTH, SUBSTRING, CAST AS VARCHAR(MAX)) are left alone.

#include "platform/tsql/StatementColumns.h"
#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

class LargeTextRefusals {
public:
    LargeTextRefusals(const StatementTokens& tokens, const TranslationContext& context)
        : m_t(tokens), m_context(context), m_columns(tokens, context) {}

    // Throws SQL Server's error for the first such use of a TEXT or NTEXT column.
    void Check() const;

    // "text" or "ntext" when the name ending at `last` is a column of that type; empty
    // otherwise.
    static QString LargeTextType(const StatementTokens& tokens, const StatementColumns& columns,
                                 const TranslationContext& context, size_t last);

private:
    // The first token of the (possibly qualified) name that ends at `last`.
    size_t NameStart(size_t last) const;
    // The type SQL Server's message gives the operand beginning at `first` (lower case).
    QString OperandTypeName(size_t first) const;
    // Whether [first, last] is a whole item of an ORDER BY or GROUP BY list.
    bool IsSortKey(size_t first, size_t last) const;

    const StatementTokens& m_t;
    const TranslationContext& m_context;
    StatementColumns m_columns;
};

} // namespace zlx::tsql
