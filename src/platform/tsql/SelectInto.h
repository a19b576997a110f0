#pragma once
// SELECT columns INTO table FROM ...: the new table takes the name, type and length of each
// column of the query (an alias names a computed one); it is made by CREATE TABLE and filled
// by INSERT ... SELECT, both run as any statement of the session.

#include "platform/engines/Driver.h"
#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TsqlToken.h"

#include <optional>

namespace zlx::tsql {

struct SelectInto {
    Tokens target; // the new table's name, as written
    Tokens source; // the statement without its INTO clause

    // What a column of the new table takes over from the column it is selected from.
    struct Copy {
        QString type; // its T-SQL type; empty: the type the engine describes
        bool notNull = false;
        bool identity = false; // IDENTITY(seed, step), NOT NULL
        std::int64_t seed = 1;
        std::int64_t step = 1;
    };

    // nullopt when `statement` is not a SELECT ... INTO.
    static std::optional<SelectInto> Read(const Tokens& statement);
    // A computed column without a name is error 1038, as the table could not name it.
    void CheckColumnNames() const;
    // The one table the query reads (FROM t [alias], without a join, UNION or GROUP BY), as
    // written; empty when it reads no such table.
    QString SourceTable() const;
    // What each of the `count` columns of the new table copies from `table`, the columns of
    // SourceTable(): SQL Server copies the type and NOT NULL from a column selected as it is,
    // and IDENTITY when the identity column is selected so once; a constant is NOT NULL too, a
    // text literal a VARCHAR (NVARCHAR) of its length, a CAST or CONVERT of its type. Nothing is
    // copied when the select list does not match the `count` columns.
    std::vector<Copy> Copies(const TableColumns& table, size_t count) const;
    // The statement that makes the table for the query's `columns`, with their `copies` (none:
    // every column may hold NULL).
    Tokens CreateTable(const std::vector<ado::ColumnInfo>& columns,
                       const std::vector<Copy>& copies) const;
    // The statement that fills it.
    Tokens Insert(const std::vector<ado::ColumnInfo>& columns) const;
};

// The SQL Server type of a column as the engine describes it: "NVARCHAR(40)", "DECIMAL(10,2)".
QString ColumnTypeText(const ado::ColumnInfo& column);

} // namespace zlx::tsql
