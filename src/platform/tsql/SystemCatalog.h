#pragma once
// The per-connection views that stand for SQL Server's catalog tables (sysobjects,
// syscolumns, sysdatabases, sysprocesses) on each engine.

#include "platform/tsql/TsqlTranslator.h"

#include <QStringList>

namespace zlx::tsql {

// Statements that create the catalog views of a new connection. `applicationName` is how
// this connection names itself to a PostgreSQL server (host:pid).
QStringList CatalogStatements(Target target, const QString& applicationName);

// SQLite: the statements that (re)make sysobjects and syscolumns over the main file and, when
// `locksSchema` is not empty, the attached file that holds the database's `locks` table.
QStringList SqliteObjectViews(const QString& locksSchema);

// SQL Server's xtype and length of a column, as SQL expressions over the engine's type text.
QString XtypeExpression(Target target, const QString& typeText);
QString LengthExpression(Target target, const QString& typeText);

} // namespace zlx::tsql
