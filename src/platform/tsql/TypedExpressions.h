#pragma once
// Expressions whose result SQL Server's types decide where an engine computes otherwise: +, -
// and * over integer types hold to the result's type (error 8115 past it) on an engine that
// computes in 64 bits; an operation whose result is MONEY keeps four places however the engine
// divides or multiplies (a quotient truncated, any other result rounded); SUM of an integer type is
// an INT (a BIGINT's a BIGINT) and SUM and AVG of MONEY are MONEY; DATALENGTH of a national text
// (NCHAR, NVARCHAR, NTEXT, N'...') counts two bytes a character. Each such operation is wrapped, in
// the statement's tokens, in the engine's call that gives SQL Server's result. Types come from
// literals, CAST and CONVERT, a few functions and the types of the columns named; an operand of no
// known type leaves its operation as written.

#include "platform/tsql/StatementColumns.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TranslationContext.h"

#include <optional>
#include <vector>

namespace zlx::tsql {

class EngineDialect;

class TypedExpressions {
public:
    TypedExpressions(StatementTokens& tokens, const TranslationContext& context);

    void Prepare();

private:
    // An operand or operation: tokens [first, last), its T-SQL type (upper case, empty when not
    // known) and whether it is made of number literals alone.
    struct Typed {
        size_t first;
        size_t last;
        QString type;
        bool literal;
    };
    // The engine's call, the value written \x01, around tokens [first, last); of two around the
    // same tokens the operand of a quotient, then the later one, goes outside.
    struct Wrap {
        size_t first;
        size_t last;
        QString call;
        bool operand = false; // a part of a call that takes both operands of a quotient
    };

    // Whether an operand that no arithmetic operator precedes begins at `i`.
    bool BeginsChain(size_t i) const;
    // The operand (with its sign) that begins at `i`, untyped.
    std::optional<Typed> OperandAt(size_t i) const;
    // The operands joined by arithmetic operators from `first` on, typed and combined by
    // precedence; `record`: the operations that need the engine's call are wrapped.
    std::optional<Typed> Chain(size_t first, bool record);
    // `left` and `right` are copies: a text operand takes a number neighbour's type.
    Typed Combine(Typed left, const QString& op, Typed right, bool record);
    // left <op> right as the engine's `call` of both (a MONEY quotient, a decimal remainder).
    void WrapOperatorCall(const Typed& left, const Typed& right, const QString& call);
    // An operation whose result is a DECIMAL (TypedExpressions_decimals); nullopt for others.
    std::optional<Typed> CombineDecimals(const Typed& left, const QString& op, const Typed& right,
                                         bool record);
    QString TypeOf(size_t first, size_t last);
    QString CallType(size_t name);

    // Comparisons, IN lists and BETWEEN of a text with integers (TypedExpressions_comparisons).
    bool HasComparison() const;
    bool InCondition(size_t i) const;
    void ConvertComparedTexts();
    std::vector<Typed> ComparedList(size_t first, QStringView separator);
    void ConvertTextSide(const Typed& left, const std::vector<Typed>& others);
    void ConvertUnionTexts();
    void ConvertIsNullReplacements();
    void ConvertBranchColumns(const std::vector<size_t>& selects);
    // The values of CASE, IIF, COALESCE and ISNULL (TypedExpressions_results).
    void ConvertResultTexts();
    std::vector<size_t> CallValues(size_t name) const;
    std::vector<size_t> CaseValues(size_t at) const;
    // The token after the END of the CASE at `at`.
    size_t CaseEnd(size_t at) const;
    std::optional<std::vector<Typed>> ResultValues(const std::vector<size_t>& starts);
    std::vector<QString> NumberTypesOf(const std::vector<Typed>& values) const;
    QString ResultType(const std::vector<size_t>& starts);
    void ConvertResultValues(const std::vector<size_t>& starts, bool first);

    // Text values of CASE, COALESCE, ISNULL and text functions compared or sorted under the
    // database collation (TypedExpressions_collations).
    void CollateResultTexts();
    std::optional<std::pair<size_t, size_t>> TextResult(size_t i);
    bool IsGroupingOpen(size_t open) const;
    bool IsComparedText(std::pair<size_t, size_t> value);
    bool IsSortKey(std::pair<size_t, size_t> value) const;
    bool IsGroupKey(size_t first) const;
    size_t KeyListBy(size_t first) const;
    QString RangeText(std::pair<size_t, size_t> value) const;

    // A text met by a number takes the number's type (TypedExpressions_textnumbers).
    void TakeNumberType(Typed& text, const Typed& number, bool record);
    QString NumberTypeOf(const Typed& operand) const;
    static QString CommonNumberType(const std::vector<QString>& types);
    // The type of a column of UNION, EXCEPT or INTERSECT whose branches give numbers of `types`.
    static QString SetColumnType(const std::vector<QString>& types);
    void WrapAsNumber(const Typed& text, const QString& type);

    // CAST and CONVERT of numbers to text types and of texts and integers to VARBINARY types
    // (TypedExpressions_casts).
    void WrapNumberTextCasts();
    void WrapNumberText(const Typed& value, const QString& target, int length);
    void WrapStyledNumberText(const Typed& value, size_t comma, size_t close, const QString& target,
                              int length);
    // CAST and CONVERT to a VARBINARY type `target` (TypedExpressions_casts).
    void WrapTextBytes(const Typed& value, const QString& target);
    bool IsBinaryValue(const Typed& value) const;
    // CAST and CONVERT of a binary value to a text type (TypedExpressions_casts).
    void WrapBinaryText(const Typed& value, size_t comma, size_t close, const QString& target);
    void WrapLengthOfNumber(const Typed& value);

    // SUM, AVG, DATALENGTH, LEN and POWER calls whose result the engine's call gives.
    void WrapCalls();
    void WrapBitNegations();
    void AddWrap(size_t first, size_t last, const QString& call, bool operand = false);
    // Writes the wraps into the tokens.
    void Apply();

    StatementTokens& m_t;
    const TranslationContext& m_context;
    const EngineDialect& m_dialect;
    std::vector<Wrap> m_wraps;
    std::vector<size_t> m_dropped; // operators that a wrap's call replaces
    StatementColumns m_columns;    // of the tokens as they stand until Apply
};

} // namespace zlx::tsql
