#pragma once
// SET @v = expression and SELECT @a = expression, @b = expression [FROM ...]: the variables
// assigned and the query that the engine answers with their values (a date variable's read as
// DATETIME there, under SET DATEFORMAT). The compound forms (SET @v += 1) read as
// @v = @v + (1).

#include "platform/tsql/TsqlToken.h"
#include "platform/tsql/TsqlVariables.h"

#include <optional>

namespace zlx::tsql {

struct VariableAssignment {
    struct Item {
        QString variable;
        Tokens value;
    };
    Tokens head;             // SELECT [DISTINCT] [TOP n]
    std::vector<Item> items; // in the order written
    Tokens rest;             // FROM ... WHERE ... ORDER BY ...; empty without a FROM
    bool fromRows() const { return !rest.empty(); }

    // nullopt when `statement` assigns no variable. A SELECT that assigns variables and also
    // returns columns is error 141.
    static std::optional<VariableAssignment> Read(const Tokens& statement);
    // The query that answers the values, variables of the values still named (the caller
    // substitutes them). Values read over rows that name a variable the same statement
    // assigns are carried from row to row by CarriedAssignment instead.
    Tokens Query(const TsqlVariables& variables) const;
};

} // namespace zlx::tsql
