#pragma once
// The embedded server's folder: database X is the file X.sqlite, its `locks` table lives in
// X.locks.sqlite beside it (so that the lock connection can write while the main one holds a
// write transaction), master.sqlite is made on first connect. The SQLite driver and the T-SQL
// layer both find files through this class.

#include <QString>
#include <utility>
#include <vector>

namespace zlx::ado {

class SqliteServerFolder {
public:
    explicit SqliteServerFolder(QString folder) : m_folder(std::move(folder)) {}

    // Whether the connection target is a server folder (not a single database file).
    bool IsFolder() const;
    QString DatabaseFile(const QString& database) const;
    QString LocksFile(const QString& database) const;
    bool HasDatabase(const QString& database) const;
    // The server's databases and their files, as sysdatabases lists them.
    std::vector<std::pair<QString, QString>> Databases() const;

    static bool IsMaster(const QString& database);

private:
    QString m_folder;
};

} // namespace zlx::ado
