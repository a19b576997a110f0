#pragma once
// SELECT @lista = ISNULL(@lista + ', ', '') + nombre FROM ...: a value read over rows that names
// a variable the same statement assigns takes, row after row, what the rows before left in
// it, as SQL Server assigns a SELECT's rows one by one. The engine answers the parts of the
// values that come from the row (the operands naming no such variable) for every row in one
// query; each row's values are then computed from those parts and the variables, in the
// order the assignments are written.

#include "platform/tsql/VariableAssignment.h"

#include <optional>

namespace zlx::tsql {

struct CarriedAssignment {
    struct Step {
        QString variable;
        Tokens value; // the value with each row part replaced by its part variable
        // The column of the rows query holding the value, when the value is one row part.
        std::optional<size_t> wholePart;
    };
    Tokens rowsQuery;           // SELECT part, part ... FROM ... (SELECT 1 without parts)
    std::vector<QString> parts; // the part variables, one per column of rowsQuery
    std::vector<Step> steps;    // in the order written

    // nullopt when no value of `assignment` read over rows names a variable it assigns. A
    // value whose operand mixes such a variable with the row's columns in a way this layer
    // cannot take apart is refused.
    static std::optional<CarriedAssignment> Read(const VariableAssignment& assignment);
};

} // namespace zlx::tsql
