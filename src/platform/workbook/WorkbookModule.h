#pragma once
// The SQLite virtual table module that shows each sheet of a workbook as a table named as
// Jet named it ("Hoja1$"): SELECT reads the cells, INSERT and UPDATE change them and write
// the workbook when the statement or transaction commits, DELETE is refused as Jet refused
// it, and every write is refused on a read-only workbook.

struct sqlite3;

namespace zlx::workbook {

class Workbook;

class WorkbookModule {
public:
    // Registers the module on `db` and creates one virtual table per sheet. Answers the
    // SQLite error code; the workbook must outlive the connection.
    static int Install(sqlite3* db, Workbook& workbook);
};

} // namespace zlx::workbook
