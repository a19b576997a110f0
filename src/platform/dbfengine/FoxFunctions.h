#pragma once
// FoxPro's functions that queries on DBF tables use most and SQLite lacks: ALLTRIM, DTOS,
// NVL, EMPTY, YEAR, MONTH, DAY, and LEN as SQLite's length.

struct sqlite3;

namespace zlx::dbfengine {

void InstallFoxFunctions(sqlite3* db);

} // namespace zlx::dbfengine
