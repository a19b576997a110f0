#pragma once
// The demo's database: its tables made by schema management (towns, clients, the change log
// and the library's base tables), a few sample rows the first time, and the export of the
// clients to a DBF file.

#include "connection/cConexion.h"

namespace zlx::demo {

struct DemoDatabaseSettings {
    // The server as a connection string names it: "sqlite:<folder>" or "postgres:<conninfo>".
    QString server;
    QString database = QStringLiteral("zolmardemo");
};

class DemoDatabase {
public:
    // Creates what is missing and opens the application's connection; nullptr (with the
    // reason in cError) when the database cannot be reached.
    static cConexionPtr Open(const DemoDatabaseSettings& settings, QString& cError);

    // Every client, in code order, into a dBASE file; false when it could not be written.
    static bool ExportClients(cConexion& oCn, const QString& cFileName);

private:
    static bool CreateSchema(const DemoDatabaseSettings& settings, QString& cError);
    static void AddSampleRows(cConexion& oCn);
};

} // namespace zlx::demo
