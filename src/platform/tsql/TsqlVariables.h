#pragma once
// The local variables of one T-SQL batch (DECLARE @v type): each keeps its declared type and is
// NULL until assigned. A value is kept as SQL Server keeps it in that type (a text cut to its
// length, a decimal rounded to its scale, an integer within its range) and goes into the
// statements that name the variable as a literal of that type.

#include "platform/engines/SqlServerDateTypes.h"
#include "platform/tsql/TsqlToken.h"
#include "platform/variant/Variant.h"

#include <QHash>
#include <optional>

namespace zlx::tsql {

enum class VariableKind { Integer, Bit, Decimal, Float, Text, Date, Binary };

struct VariableType {
    QString name; // upper case, as written: "VARCHAR", "DECIMAL"
    VariableKind kind = VariableKind::Integer;
    int length = 0;        // characters or bytes; 0: MAX
    bool fixed = false;    // CHAR/NCHAR/BINARY: filled up to `length`
    bool national = false; // NCHAR/NVARCHAR: its literals are N'...'
    int precision = 0;     // DECIMAL/NUMERIC/MONEY; TIME/DATETIME2: the digits of a second
    int scale = 0;

    // The type written from `first` in `tokens` (DECIMAL(10, 2)); `end` gets where it ends.
    // Types a local variable cannot have, or this layer does not keep, are refused.
    static VariableType Read(const Tokens& tokens, size_t first, size_t& end);
    // MONEY; DECIMAL(p,s) for every other exact number with a fraction (SMALLMONEY too),
    // FLOAT, a date type with its digits (TIME(7)); the name as written for the others.
    QString SqlType() const;
    // The date type of a variable of kind Date.
    ado::DateType DateTypeOf() const;
};

class TsqlVariables {
public:
    // DECLARE: a second declaration of the same name in the batch is error 134.
    void Declare(const QString& name, const VariableType& type);
    bool IsDeclared(const QString& name) const { return m_variables.contains(name.toLower()); }
    // Ends a variable the layer declared for itself.
    void Forget(const QString& name) { m_variables.remove(name.toLower()); }
    // Error 137 when the variable was not declared.
    const VariableType& TypeOf(const QString& name) const;
    // A text variable's value as it holds it (CHAR's filled up), nullopt while NULL.
    std::optional<QString> ValueText(const QString& name) const;

    // Gives the variable `value` (as the engine answered it), converted to its type; a value
    // out of the type's range is SQL Server's overflow error.
    void Assign(const QString& name, const Variant& value);

    // `statement` with every variable replaced by the literal of its value; with
    // `placeholders`, by a value of its type instead (to check a statement before it runs).
    Tokens Substitute(const Tokens& statement, bool placeholders = false) const;

private:
    struct Variable {
        VariableType type;
        std::optional<QString> value; // the literal's text: digits, the text itself, a date
    };
    const Variable& Find(const QString& name) const;
    Tokens Literal(const Variable& variable, bool placeholder) const;

    QHash<QString, Variable> m_variables; // lower-case name -> variable
};

} // namespace zlx::tsql
