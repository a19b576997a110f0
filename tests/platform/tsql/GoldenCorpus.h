#pragma once
// The statements the library sends, one a file in golden/ (run in the order of the file
// names): the T-SQL, the text each engine receives and what running it answers on each engine.
// The translations assume @@IDENTITY 41, @@ROWCOUNT 3, the default 1 for clientes.Activo, the
// text columns Nombre, Apellidos, texto and Nota and, on SQLite, "empresa" as the current
// database. The runs start from the tables of golden/tables.sql.
//
// A file has sections, each opened by a line of its own: "-- T-SQL", "-- SQLite",
// "-- PostgreSQL", then "-- result" (both engines) or "-- result on SQLite" and "-- result on
// PostgreSQL". Other "--" lines before the first section describe the case. A result is one
// line per event of the session: "rowset", "row <values joined by |>", "end", "count <n>", or
// "error <native number>" ("error" alone: fails, with no SQL Server number). In a row, "{any}"
// stands for any one value (a clock, a path). "\xNN" in any section is that control character.

#include <QString>
#include <QStringList>
#include <vector>

namespace zlx::test {

struct GoldenCase {
    QString name; // the file name
    QString tsql;
    QString sqlite;
    QString postgres;
    QStringList sqliteResult;
    QStringList postgresResult;
};

const std::vector<GoldenCase>& GoldenCorpus();
// The statements of golden/tables.sql, in order.
QStringList GoldenTables();
// An answer of the session matches the expected result line.
bool ResultLineMatches(const QString& expected, const QString& actual);

} // namespace zlx::test
