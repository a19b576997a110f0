#pragma once
// The SQLite virtual-table module "dbf" that serves one .dbf file as a table, reading and
// writing the file in place (no copy of the data):
//   CREATE VIRTUAL TABLE name USING dbf('<path>')
// Columns are the fields in lower case, declared with the SQL type that tells the driver
// their ADO type; the row id is the record number. DELETE marks a record with "*"; with
// deleted records hidden, scans skip marked records.

#include <memory>
#include <vector>

struct sqlite3;

namespace zlx::dbfengine {

struct DbfVirtualTable;

class DbfModule {
public:
    // Registers the module on the connection, which must be closed before the module ends;
    // null when SQLite refuses it.
    static std::unique_ptr<DbfModule> Register(sqlite3* db, bool hideDeleted);

    bool HidesDeleted() const { return m_hideDeleted; }
    // Closes the files every table holds open: done after each statement, so that other
    // connections can rewrite a table between statements.
    void ReleaseFiles();

    void Attach(DbfVirtualTable* table) { m_tables.push_back(table); }
    void Detach(DbfVirtualTable* table);

private:
    explicit DbfModule(bool hideDeleted) : m_hideDeleted(hideDeleted) {}
    bool m_hideDeleted;
    std::vector<DbfVirtualTable*> m_tables;
};

} // namespace zlx::dbfengine
