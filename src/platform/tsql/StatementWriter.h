#pragma once
// Writes one T-SQL statement, after the rewriting passes, in the SQL of an engine: TOP, ORDER BY
// with SQL Server's NULL placement, LIKE, string "+", literals read as SQL Server reads them,
// @@ variables, table hints, DEFAULT in SET, CREATE INDEX, column types of definitions, and the
// function calls and CASTs that the engine spells otherwise (StatementWriter_calls.cpp).

#include "platform/tsql/QualifiedNameWriter.h"
#include "platform/tsql/StatementColumns.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/StoredValues.h"
#include "platform/tsql/TranslationContext.h"
#include "platform/tsql/TsqlDateFunctions.h"

#include <map>
#include <vector>

namespace zlx::tsql {

class StatementWriter {
public:
    StatementWriter(StatementTokens& tokens, const TranslationContext& context,
                    StoredValues& stored);

    // The whole statement in the engine's SQL.
    QString Write();
    // Tables named WITH (TABLOCKX) or (XLOCK).
    const QStringList& ExclusiveTables() const { return m_exclusive; }
    const QStringList& Databases() const { return m_names.Databases(); }

private:
    // The position of INDEX in CREATE [UNIQUE] [[NON]CLUSTERED] INDEX i ON t; 0 for any other
    // statement.
    size_t IndexKeyword() const;

    // The index gets its engine name; some engines write the schema of a table in another
    // database on the index, not on the table.
    QString IndexDefinition(size_t index);

    QString Range(size_t begin, size_t end);

    // Writes the token at `i` (and whatever construct starts there); returns the next index.
    size_t Emit(size_t i, size_t end, QString& out, std::multimap<size_t, QString>& limits);

    QString GlobalValue(const QString& name) const;

    // A "+" joins text when a neighbour is a string literal, a text function's result or a
    // text column.
    // The number that the text literal at `i` is an operand with (in '10' + 5, 5 * '2'), if
    // any: the text then takes the number's type, as data-type precedence says.
    const Token* NumberOperandBeside(size_t i) const;

    bool IsTextWithNumber(size_t i) const;

    // 2147483647 + 1, 100000 * 100000: arithmetic of INT literals that leaves the INT range is
    // SQL Server's error 8115 (the engines compute in 64 bits). `i` may begin such a chain.
    void CheckIntegerLiterals(size_t i) const;

    // a / b and a % b: the divisor checked for zero by the engine's function.
    size_t EmitCheckedDivisor(size_t i, QString& out);

    bool IsConcatenation(size_t plus) const;

    // LIKE (NOT LIKE when `negated`) as the engine's operator, its pattern in parentheses; an
    // ESCAPE character turns the escaped characters of the pattern into classes ("[%]"): of a
    // literal pattern here, of any other through the engine's function.
    size_t EmitLike(size_t like, bool negated, QString& out);

    bool IsTextColumnName(size_t i) const;

    bool IsTextCast(size_t i) const;

    size_t EmitName(size_t i, size_t end, QString& out, std::multimap<size_t, QString>& limits);

    size_t EmitOrderBy(size_t order, size_t end, QString& out);

    // Where the items of an ORDER BY that start at `from` end.
    size_t OrderByEnd(size_t from, size_t end) const;

    // The comma-separated sort items in [from, end), each with the NULL placement of SQL
    // Server.
    void EmitOrderedItems(size_t from, size_t end, QString& out);

    // What the sort item [first, last) adds to place its NULLs; nothing for a column that no
    // table lets be NULL (so that the engine may still read it in the order of an index).
    QString NullsOrder(size_t first, size_t last) const;

    bool IsIntegerColumn(size_t first, size_t end) const;

    size_t EmitTop(size_t select, size_t end, QString& out, std::multimap<size_t, QString>& limits);

    // TOP n PERCENT: that share of the rows that the SELECT finds, rounded up, counted by a
    // subquery over its FROM and WHERE.
    QString PercentCount(size_t select, size_t scopeEnd, const QString& percent);

    // The ORDER BY that TOP n WITH TIES requires (error 1062 without one).
    size_t TiesOrderBy(size_t select, size_t scopeEnd) const;

    // TOP n WITH TIES on an engine without it: the number of rows ranked n or better by the
    // SELECT's ORDER BY at `order`, which are the first n and those tied with the last of them.
    QString TiedCount(size_t select, size_t order, size_t scopeEnd, const QString& count);

    // Where the SELECT at `select` ends: the ")" closing its parenthesis, or the end.
    size_t ScopeEnd(size_t select, size_t end) const;

    bool IsTableHint(size_t i) const;

    size_t SkipHints(size_t with);

    // t (NOLOCK): hints in parentheses right after the table, without WITH.
    size_t SkipBareHints(size_t open);

    QString HintedTable(size_t with) const;

    size_t EmitSetDefault(size_t i, QString& out);

    bool IsScalarSubquery(size_t open) const;
    void MarkSingleValue(size_t open, std::multimap<size_t, QString>& limits);
    // Whether the subquery's rows come out of a TOP (but TOP 1), DISTINCT, GROUP BY or set
    // operator, so that the aggregate reads them whole; `itemEnd` ends its first column.
    bool RowsComeWhole(size_t select, size_t from, size_t itemEnd, size_t close) const;
    // (SELECT agg(column) FROM (SELECT ... column ...)).
    void ReadWhole(size_t select, size_t itemEnd, size_t close, const QString& aggregate,
                   std::multimap<size_t, QString>& limits);
    // The alias the item that ends at `itemEnd` is given (x AS a, x a); empty: none.
    QString ItemAlias(size_t select, size_t itemEnd) const;

    // Calls (StatementWriter_calls.cpp).
    // Function calls with another spelling; returns `i` when the call stays as written.
    size_t EmitFunction(size_t i, QString& out);

    // Whether the word at `i` names a type (CHAR(10) in a column definition, after AS, after a
    // variable or first in CONVERT) rather than calls a function.
    bool IsTypeName(size_t i) const;

    QString ColumnProperty(size_t open, size_t close, const std::vector<size_t>& commas) const;
    CallArgument ArgumentOf(size_t from, size_t to);

    // The arguments of the call whose parentheses are at `open` and `close`.
    std::vector<CallArgument> CallArguments(size_t open, size_t close,
                                            const std::vector<size_t>& commas);

    // value + n and value - n, value a date: n days later or earlier. Answers `i` when the
    // operand at `i` is no date with a number added.
    size_t EmitDateArithmetic(size_t i, QString& out);
    // date - date and date - 'text' over the operand [first, minus) and the one after `minus`:
    // the difference as a DATETIME, that many days after 1900-01-01. Answers `first` when the
    // operands are not so.
    size_t EmitDateDifference(size_t first, size_t minus, QString& out);

    // The number of days that begins at `at` after a date's + or -, into `days`: a number, or
    // CAST(n AS SMALLINT) of an integer type. Returns where it ends, `at` when there is none.
    // Refuses date + days over an operand [first, end) of a type that takes none (error 206).
    void RefuseDayArithmetic(size_t first, size_t end, const QString& days) const;
    size_t DaysOperandEnd(size_t at, QString& days) const;

    // Whether [i, end) is a date (DateOperands).
    bool IsDateOperand(size_t i, size_t end) const;
    // Where the value of the SELECT list that begins at `first` ends (before its alias) when it
    // is a date other than a column; 0 otherwise.
    size_t SelectedDateEnd(size_t first) const;
    // The value [first, end) typed as its date type, so that it reads back as a date, not as a
    // text.
    size_t EmitSelectedDate(size_t first, size_t end, QString& out);
    // The text literal at `i` compared with a DATE, TIME, SMALLDATETIME or DATETIME2 operand,
    // read as that operand's type (as SQL Server converts it); empty for any other literal.
    QString ComparedDateLiteral(size_t i) const;

    // Whether the operand [first, last] stands beside +, -, *, / or %.
    bool IsArithmeticOperand(size_t first, size_t last) const;
    // CAST(x AS type); CAST(FLOOR(CAST(x AS FLOAT)) AS DATETIME) is the date of x at midnight.
    size_t EmitCast(size_t cast, size_t close, QString& out);
    size_t EmitTryConversion(size_t name, size_t close, QString& out);
    // RAND([seed]): the session's next value, written as a FLOAT literal.
    size_t EmitRandom(size_t name, size_t close, QString& out);
    // STRING_AGG(value, separator) [WITHIN GROUP (ORDER BY ...)].
    size_t EmitStringAggregate(size_t name, size_t close, QString& out);

    const TranslationContext& m_context;
    const EngineDialect& m_dialect;
    StatementTokens& m_t;
    StoredValues& m_stored;
    QualifiedNameWriter m_names;
    StatementColumns m_columns;
    QStringList m_exclusive;
    std::vector<std::pair<size_t, size_t>> m_selected; // the values of a SELECT statement
    static constexpr size_t kNone = static_cast<size_t>(-1);
    size_t m_plainOperand = kNone; // the operand EmitDateArithmetic is writing
    size_t m_dateValue = kNone;    // the value EmitSelectedDate is writing
    // The value each RAND call drew, by its position: a part of a statement may be written more
    // than once, its RAND drawn once.
    std::map<size_t, QString> m_randoms;
};

} // namespace zlx::tsql
