#pragma once
// ADOX's catalog over an open connection: the tables and views of its database, their
// columns in ADO's terms and their indexes, read from each engine's own metadata (SQLite's
// table and index lists, PostgreSQL's catalogs, SQL Server's system views), and the few
// changes the schema layer makes through it (a new database file, index append and delete,
// column rename).

#include "platform/ado/Connection.h"

#include <QStringList>
#include <optional>
#include <vector>

namespace zlx::ado {

struct CatalogColumn {
    QString Name;
    DataTypeEnum Type = adEmpty;
    std::int32_t DefinedSize = 0;
    std::uint8_t Precision = 0;
    std::uint8_t NumericScale = 0;
};

struct CatalogIndex {
    QString Name; // the SQL Server name: a key's constraint name, or the name CREATE INDEX gave
    bool PrimaryKey = false;
    bool Unique = false;
    QStringList Columns;
};

struct CatalogTable {
    QString Name;
    QString Type; // "TABLE", "VIEW" or "SYSTEM TABLE"
};

class Catalog {
public:
    // A new, empty database file for a Jet connection string; 0x80040E17 when the file
    // already exists.
    static void Create(const QString& connectionString);

    void ActiveConnection(ConnectionPtr connection) { m_connection = std::move(connection); }
    ConnectionPtr ActiveConnection() const { return m_connection; }

    std::vector<CatalogTable> Tables();
    // The table of that name, compared without regard to case.
    std::optional<CatalogTable> Table(const QString& name);
    // The table's columns in their order; 3265 when the table does not exist.
    std::vector<CatalogColumn> Columns(const QString& table);
    std::vector<CatalogIndex> Indexes(const QString& table);

    void AppendIndex(const QString& table, const CatalogIndex& index);
    // Drops the index of that name (compared without regard to case); 3265 when there is none.
    void DeleteIndex(const QString& table, const QString& name);
    void RenameColumn(const QString& table, const QString& oldName, const QString& newName);

    // The rows of a statement run on `connection`, for callers that inspect the schema.
    static std::vector<std::vector<Variant>> QueryRows(Connection& connection, const QString& sql);

private:
    Connection& Open() const;
    ConnectionString::Engine Engine() const;
    std::vector<std::vector<Variant>> Rows(const QString& sql) const;
    void Run(const QString& sql) const;
    std::vector<CatalogIndex> SqliteIndexes(const QString& table) const;
    std::vector<CatalogIndex> PostgresIndexes(const QString& table) const;
    std::vector<CatalogIndex> SqlServerIndexes(const QString& table) const;
    QString SqliteSchemaOf(const QString& table) const;

    ConnectionPtr m_connection;
};

} // namespace zlx::ado
