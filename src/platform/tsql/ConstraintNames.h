#pragma once
// The names SQL Server gives the constraints declared without one, where the engines would name
// them their own way (table_column_fkey, table_column_check) or not at all (SQLite, whose 547
// would name a CHECK's expression): a FOREIGN KEY FK__<table>__<column>__ and eight hexadecimal
// digits, a column's CHECK CK__<table>__<column>__ and the digits, a table's CHECK CK__<table>__
// and the digits; the table cut to nine characters and the column to what the name's thirty
// leave.

#include "platform/tsql/StatementTokens.h"

#include <optional>

namespace zlx::tsql {

// Gives each unnamed FOREIGN KEY and CHECK of CREATE TABLE and ALTER TABLE ... ADD its SQL
// Server name (CONSTRAINT FK__... or CK__... written before it); other statements are left as
// they are.
void NameUnnamedConstraints(StatementTokens& tokens);
Tokens WithConstraintsNamed(const Tokens& statement);

// ALTER TABLE [dbo.]t [WITH CHECK] ADD ... without the owner dbo and without WITH CHECK, which
// asks what adding a constraint does anyway (check the rows there are); nullopt for a statement
// that has neither.
std::optional<Tokens> WithoutCheckOption(const Tokens& statement);
// ALTER TABLE t [WITH CHECK] CHECK CONSTRAINT c: a constraint checked already, as every
// constraint here is.
bool ChecksConstraint(const Tokens& statement);

// FK__<table>__<column>__<digits>: the digits are any on SQL Server; here they come from the
// key's table, column, referenced table and `ordinal`, so that one statement names alike.
QString SqlServerForeignKeyName(const QString& table, const QString& column,
                                const QString& referenced, int ordinal);
// CK__<table>__<column>__<digits>, or CK__<table>__<digits> for a table's CHECK (`column`
// empty); the digits from the table, column and the CHECK's `ordinal` in its statement.
QString SqlServerCheckName(const QString& table, const QString& column, int ordinal);

} // namespace zlx::tsql
