#include "ScratchDatabaseTest.h"

#include "platform/ado/Connection.h"

#include <QUuid>

namespace zlx::ado::testing {

namespace {

class SqliteFolder : public ScratchDatabase {
public:
    explicit SqliteFolder(QString folder) : m_folder(std::move(folder)) {}
    QString ConnectionString() const override {
        // The engine's own SQL: these tests exercise the driver, not the T-SQL layer.
        return QStringLiteral("Provider=SQLOLEDB.1;Persist Security Info=False;Database=master;"
                              "SQL Dialect=Native;Server=sqlite:") +
               m_folder;
    }

private:
    QString m_folder;
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
    OdbcSchema(const QString& server, QString odbc)
        : m_schema(QStringLiteral("Server=") + server, QStringLiteral("Provider=SQLOLEDB.1;")),
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

bool ThroughOdbc(const char* engine) {
    return QString::fromLatin1(engine) == u"odbc";
}

} // namespace

void ScratchDatabaseTest::SetUp() {
    EngineTest::SetUp();
    if (Stopped()) return;
    if (!Postgres())
        m_database = std::make_unique<SqliteFolder>(Target());
    else if (ThroughOdbc(GetParam()))
        m_database = std::make_unique<OdbcSchema>(Server(), Odbc());
    else
        m_database = std::make_unique<PostgresSchema>(
            QStringLiteral("Server=") + Server(),
            QStringLiteral("Provider=SQLOLEDB.1;Persist Security Info=False;SQL Dialect=Native;"));
}

QString ScratchDatabaseTest::ErrorSource() const {
    if (!Postgres()) return QStringLiteral("SQLite");
    return ThroughOdbc(GetParam()) ? QStringLiteral("ODBC") : QStringLiteral("PostgreSQL");
}

QString ScratchDatabaseTest::SlowQuery() const {
    return Postgres() ? QStringLiteral("SELECT pg_sleep(30)")
                      : QStringLiteral("WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 "
                                       "FROM c) SELECT count(*) FROM c");
}

} // namespace zlx::ado::testing
