#pragma once
// The FoxPro dialect of the statements the library and applications send, turned into the
// SQLite the folder engine runs: logical constants .T. .F. .NULL. and operators .AND. .OR.
// .NOT., date constants {^2024-01-31} and {d '2024-01-31'}, strings in double quotes, "=="
// for "=", and SELECT TOP n as a LIMIT. Text inside strings is never touched.

#include <QString>
#include <QStringList>

namespace zlx::dbfengine::FoxSqlText {

// The statements of a batch, split at semicolons outside strings; empty ones dropped.
QStringList Statements(const QString& batch);
// One statement in SQLite's words.
QString ToSqlite(const QString& statement);
// The first word of the statement, upper case.
QString FirstWord(const QString& statement);

} // namespace zlx::dbfengine::FoxSqlText
