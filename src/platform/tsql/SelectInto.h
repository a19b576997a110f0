#pragma once
// SELECT columns INTO table FROM ...: the new table takes the name, type and length of each
// column of the query (an alias names a computed one); it is made by CREATE TABLE and filled
// by INSERT ... SELECT, both run as any statement of the session.

#include "platform/engines/Driver.h"
#include "platform/tsql/TsqlToken.h"

#include <optional>

namespace zlx::tsql {

struct SelectInto {
    Tokens target; // the new table's name, as written
    Tokens source; // the statement without its INTO clause

    // nullopt when `statement` is not a SELECT ... INTO.
    static std::optional<SelectInto> Read(const Tokens& statement);
    // A computed column without a name is error 1038, as the table could not name it.
    void CheckColumnNames() const;
    // The statement that makes the table for the query's `columns`.
    Tokens CreateTable(const std::vector<ado::ColumnInfo>& columns) const;
    // The statement that fills it.
    Tokens Insert(const std::vector<ado::ColumnInfo>& columns) const;
};

// The SQL Server type of a column as the engine describes it: "NVARCHAR(40)", "DECIMAL(10,2)".
QString ColumnTypeText(const ado::ColumnInfo& column);

} // namespace zlx::tsql
