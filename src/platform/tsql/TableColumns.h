#pragma once
// The columns of a table as the translator needs them to store a literal as SQL Server would:
// their names in order and the kind of their T-SQL type.

#include <QString>
#include <cstdint>
#include <vector>

namespace zlx::tsql {

// What a column holds, as far as converting a stored text goes.
enum class ColumnKind { Text, Integer, Bit, Float, Money, Decimal, Date, Other };

struct TableColumn {
    QString name;
    QString type; // the T-SQL type, as declared ("DECIMAL(5,2)")
    ColumnKind kind = ColumnKind::Other;
    bool identity = false; // numbered by the engine: an INSERT without column list skips it
    bool notNull = false;  // NOT NULL (an identity always is)
    std::int64_t seed = 1; // an identity's IDENTITY(seed, step)
    std::int64_t step = 1;
};

using TableColumns = std::vector<TableColumn>;

// The kind of a column declared with T-SQL type `type` ("INT", "DECIMAL(5,2)", "nvarchar(40)").
ColumnKind KindOfTsqlType(const QString& type);
TableColumn ColumnOfType(const QString& name, const QString& type, bool identity = false);

// The column of `columns` named `name` (without regard to case); nullptr when none is.
const TableColumn* FindColumn(const TableColumns& columns, const QString& name);

} // namespace zlx::tsql
