#pragma once
// Which operands of a statement SQL Server takes for dates, and which text literals written as
// dates ('20240315', '15/03/2024 10:00') it reads as dates: one stored in a date column, compared
// with a date (=, <, BETWEEN, IN) or an alternative to one in ISNULL or COALESCE. Anywhere else
// such a literal is a text and is written as it stands ('15/03/2024' stored in a VARCHAR column
// stays '15/03/2024').

#include "platform/engines/SqlServerDateTypes.h"
#include "platform/tsql/StatementColumns.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/StoredValues.h"
#include "platform/tsql/TranslationContext.h"

#include <optional>
#include <utility>

namespace zlx::tsql {

class DateOperands {
public:
    DateOperands(const StatementTokens& tokens, const TranslationContext& context,
                 StoredValues& stored, const StatementColumns& columns);

    // Whether the operand [first, end) is a date: a date column, GETDATE(), DATEADD(...),
    // EOMONTH(...), a CAST or CONVERT to a date type, MIN, MAX, ISNULL or COALESCE of one, or one
    // followed by + or - (a date plus days, the difference of two dates).
    bool IsDate(size_t first, size_t end) const { return KindOf(first, end) == Kind::Date; }

    // The date type of the operand [first, end) when the statement tells it: a column of one of
    // its tables, a CAST or CONVERT to a date type or SYSDATETIME(); nullopt otherwise.
    std::optional<ado::DateType> DeclaredType(size_t first, size_t end) const;

    // The date type of the operand that the literal at `i` is compared with (=, <, BETWEEN, IN)
    // when the statement tells it (DeclaredType); nullopt otherwise.
    std::optional<ado::DateType> ComparedType(size_t i) const;

    // Whether the text literal at `i` is read as a date. Where what meets it cannot be told (a
    // column no table names, a subquery, a function of no known type), it is, as it always was.
    bool ReadsAsDate(size_t i) const;

private:
    enum class Kind { Date, NotDate, Unknown };
    using Range = std::pair<size_t, size_t>;

    Kind KindOf(size_t first, size_t end) const;
    Kind CallKind(size_t name, size_t close) const;
    // The kind of the column named at `i`, from the statement's tables.
    Kind ColumnKindAt(size_t i) const;
    // The kind of a column known by its name alone (one of a table whose columns are not known).
    Kind ColumnKindOf(const QString& column) const;

    // The kind of what the literal at `i` meets: the other operand of its comparison, BETWEEN
    // or IN, or the other arguments of the ISNULL or COALESCE it is an argument of. nullopt
    // when it meets nothing that converts it.
    std::optional<Kind> MetKind(size_t i) const;
    // The operand compared with the literal at `i` by =, <>, <, >, <=, >=, BETWEEN or IN.
    std::optional<Range> ComparedOperand(size_t i) const;
    // The operand that ends right before `keyword` (a NOT before it skipped).
    Range OperandBefore(size_t keyword) const;
    // The BETWEEN whose bounds the literal at `i` is one of; 0 when there is none.
    size_t BetweenOf(size_t i) const;
    // The kind of the other arguments of the ISNULL or COALESCE that the literal at `i` is a
    // whole argument of.
    std::optional<Kind> AlternativesKind(size_t i) const;

    const StatementTokens& m_t;
    const TranslationContext& m_context;
    StoredValues& m_stored;
    const StatementColumns& m_columns;
};

} // namespace zlx::tsql
