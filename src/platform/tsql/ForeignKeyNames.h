#pragma once
// The name SQL Server gives a FOREIGN KEY constraint declared without one, where the engines
// would name it their own way (table_column_fkey): FK__<table>__<column>__ and eight hexadecimal
// digits, the table cut to nine characters and the column to what the name's thirty leave.

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

// Gives each unnamed FOREIGN KEY of CREATE TABLE and ALTER TABLE ... ADD its SQL Server name
// (CONSTRAINT FK__... written before it); other statements are left as they are.
void NameUnnamedForeignKeys(StatementTokens& tokens);
Tokens WithForeignKeysNamed(const Tokens& statement);

// FK__<table>__<column>__<digits>: the digits are any on SQL Server; here they come from the
// key's table, column, referenced table and `ordinal`, so that one statement names alike.
QString SqlServerForeignKeyName(const QString& table, const QString& column,
                                const QString& referenced, int ordinal);

} // namespace zlx::tsql
