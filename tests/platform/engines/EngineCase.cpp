#include "EngineCase.h"

#include "platform/ado/Connection.h"

#include <QDir>
#include <QTemporaryDir>
#include <QUuid>
#include <cstdlib>

namespace zlx::ado::testing {

namespace {

QString TempRoot() {
    const char* root = std::getenv("ZLX_TEST_TMP");
    const QString path = root ? QString::fromLocal8Bit(root) : QDir::tempPath();
    QDir().mkpath(path);
    return path;
}

class SqliteFolder : public ScratchDatabase {
public:
    SqliteFolder() : m_dir(TempRoot() + QStringLiteral("/drivers-XXXXXX")) {}
    QString ConnectionString() const override {
        // The engine's own SQL: these tests exercise the driver, not the T-SQL layer.
        return QStringLiteral("Provider=SQLOLEDB.1;Persist Security Info=False;Database=master;"
                              "SQL Dialect=Native;Server=sqlite:") +
               m_dir.path();
    }

private:
    QTemporaryDir m_dir;
};

// A schema of the test cluster's database, reached as a SQL Server database of that name.
class PostgresSchema : public ScratchDatabase {
public:
    PostgresSchema(QString serverString, QString serverPrefix)
        : m_serverString(std::move(serverString)), m_prefix(std::move(serverPrefix)),
          m_schema(QStringLiteral("zt_") + QUuid::createUuid().toString(QUuid::Id128).left(12)) {
        Admin(QStringLiteral("CREATE SCHEMA ") + m_schema);
    }
    ~PostgresSchema() override {
        try {
            Admin(QStringLiteral("DROP SCHEMA ") + m_schema + QStringLiteral(" CASCADE"));
        } catch (...) {
            // a test that broke the cluster already failed; nothing more to report
        }
    }
    QString ConnectionString() const override {
        return m_prefix + QStringLiteral("Database=") + m_schema + u';' + m_serverString;
    }
    const QString& Schema() const { return m_schema; }

private:
    void Admin(const QString& sql) const {
        auto connection = std::make_shared<Connection>();
        connection->Open(m_prefix + m_serverString);
        long affected = 0;
        connection->Execute(sql, affected, adExecuteNoRecords);
    }
    QString m_serverString;
    QString m_prefix;
    QString m_schema;
};

// The same kind of schema reached through the PostgreSQL ODBC driver.
class OdbcSchema : public ScratchDatabase {
public:
    OdbcSchema(const QString& conninfo, QString odbc)
        : m_schema(QStringLiteral("Server=postgres:") + conninfo,
                   QStringLiteral("Provider=SQLOLEDB.1;")),
          m_odbc(std::move(odbc)) {}
    QString ConnectionString() const override {
        return QStringLiteral("Provider=MSDASQL;") + m_odbc +
               QStringLiteral(";BoolsAsChar=0;ConnSettings=SET search_path TO ") +
               m_schema.Schema();
    }

private:
    PostgresSchema m_schema;
    QString m_odbc;
};

QString Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? QString::fromLocal8Bit(value) : QString();
}

} // namespace

EngineCase SqliteCase() {
    return {"SQLite", QStringLiteral("SQLite"), [] { return std::make_unique<SqliteFolder>(); },
            QStringLiteral("WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c) "
                           "SELECT count(*) FROM c")};
}

EngineCase PostgresCase() {
    return {"PostgreSQL", QStringLiteral("PostgreSQL"),
            []() -> std::unique_ptr<ScratchDatabase> {
                const QString conninfo = Environment("ZLX_TEST_PG");
                if (conninfo.isEmpty()) return nullptr;
                return std::make_unique<PostgresSchema>(
                    QStringLiteral("Server=postgres:") + conninfo,
                    QStringLiteral("Provider=SQLOLEDB.1;Persist Security Info=False;"
                                   "SQL Dialect=Native;"));
            },
            QStringLiteral("SELECT pg_sleep(30)")};
}

EngineCase OdbcPostgresCase() {
    return {"OdbcPostgreSQL", QStringLiteral("ODBC"),
            []() -> std::unique_ptr<ScratchDatabase> {
                const QString conninfo = Environment("ZLX_TEST_PG");
                const QString odbc = Environment("ZLX_TEST_ODBC_PG");
                if (conninfo.isEmpty() || odbc.isEmpty()) return nullptr;
                return std::make_unique<OdbcSchema>(conninfo, odbc);
            },
            QStringLiteral("SELECT pg_sleep(30)")};
}

} // namespace zlx::ado::testing
