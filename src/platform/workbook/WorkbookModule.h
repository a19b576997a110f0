#pragma once
// The SQLite virtual table module that shows each sheet of a workbook as a table named as
// Jet named it ("Hoja1$"): SELECT reads the cells, INSERT and UPDATE change them and write
// the workbook when the statement or transaction commits, DELETE is refused as Jet refused
// it, and every write is refused on a read-only workbook.

#include <memory>

struct sqlite3;

namespace zlx::workbook {

class Workbook;

class WorkbookModule {
public:
    // Registers the module on `db`; its tables show the workbook `current` holds when they
    // are created. `current` must outlive the connection. Answers the SQLite error code.
    static int Register(sqlite3* db, std::unique_ptr<Workbook>& current);
    // One virtual table per sheet of the current workbook, and their removal (before the
    // workbook they show goes away).
    static int CreateTables(sqlite3* db, Workbook& workbook);
    static int DropTables(sqlite3* db, Workbook& workbook);
};

} // namespace zlx::workbook
