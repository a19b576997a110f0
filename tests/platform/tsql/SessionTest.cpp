// The T-SQL session on a real engine: what SQL Server would answer, statement by statement.
#include "GoldenCorpus.h"
#include "QtPrinters.h"
#include "SessionFixture.h"
#include "platform/engines/ErrorKinds.h"

#include <QDir>
#include <QStringList>
#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::tsql;
using test::RecordingSink;

namespace {

class SessionTest : public test::SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        if (Stopped()) return;
        Exec(QStringLiteral("CREATE TABLE clientes (zolmarID INT NOT NULL IDENTITY(1,1))"));
        Exec(QStringLiteral("ALTER TABLE clientes ADD Nombre NVARCHAR(40) NOT NULL DEFAULT ''"));
        Exec(QStringLiteral("ALTER TABLE clientes ADD Alta DATETIME NOT NULL DEFAULT '17530101'"));
        Exec(QStringLiteral("ALTER TABLE clientes ADD Activo INT NOT NULL DEFAULT 1"));
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(SessionTest);

TEST_P(SessionTest, InsertReportsItsIdentityAndNoCountHidesCounts) {
    EXPECT_EQ(
        Exec(QStringLiteral(
            "SET NOCOUNT ON ; INSERT INTO clientes(Nombre) VALUES ('Ana') ; SELECT @@Identity; "
            "SET NOCOUNT OFF")),
        (QStringList{"rowset", "row 1", "end"}));
    EXPECT_EQ(Exec(QStringLiteral("SET NOCOUNT ON INSERT INTO clientes DEFAULT VALUES SELECT "
                                  "@@Identity  SET NOCOUNT OFF")),
              (QStringList{"rowset", "row 2", "end"}));
    EXPECT_EQ(Exec(QStringLiteral("INSERT INTO clientes (Nombre, Activo) VALUES ('Eva', DEFAULT)")),
              QStringList{"count 1"});
    EXPECT_EQ(m_session->Identity(), 3);
    EXPECT_EQ(
        Value(QStringLiteral(
            "SELECT Nombre + '/' + RTRIM(CAST(Activo AS CHAR)) FROM clientes WHERE zolmarID = 3")),
        QStringLiteral("Eva/1"));
    EXPECT_EQ(Exec(QStringLiteral(
                  "SET NOCOUNT ON ; UPDATE clientes SET Activo = 0 WHERE zolmarID > 1 ; SELECT "
                  "@@RowCount ; SET NOCOUNT OFF")),
              (QStringList{"rowset", "row 2", "end"}));
    EXPECT_EQ(Exec(QStringLiteral("UPDATE clientes SET Activo=DEFAULT WHERE zolmarID = 2")),
              QStringList{"count 1"});
    EXPECT_EQ(Value(QStringLiteral("SELECT sum(Activo) FROM clientes")), QStringLiteral("2"));
    EXPECT_EQ(Value(QStringLiteral("SELECT isnull(max(zolmarID),0) AS ultimo FROM clientes")),
              QStringLiteral("3"));
}

TEST_P(SessionTest, NestedTransactionsCountLikeSqlServer) {
    Exec(QStringLiteral("BEGIN TRANSACTION uno"));
    Exec(QStringLiteral("BEGIN TRANSACTION dos"));
    EXPECT_EQ(Value(QStringLiteral("SELECT @@Trancount")), QStringLiteral("2"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('dentro')"));
    Exec(QStringLiteral("COMMIT TRANSACTION dos"));
    EXPECT_EQ(Value(QStringLiteral("SELECT @@TranCount")), QStringLiteral("1"));
    Exec(QStringLiteral("ROLLBACK TRANSACTION"));
    EXPECT_EQ(m_session->TranCount(), 0);
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes")), QStringLiteral("0"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("COMMIT TRANSACTION uno")), 3902);
    EXPECT_EQ(NativeErrorOf(QStringLiteral("ROLLBACK TRANSACTION")), 3903);

    Exec(QStringLiteral("BEGIN TRANSACTION a"));
    Exec(QStringLiteral("BEGIN TRANSACTION b"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('guardado')"));
    Exec(QStringLiteral("COMMIT TRANSACTION b COMMIT TRANSACTION a"));
    EXPECT_EQ(m_session->TranCount(), 0);
    auto other = Open(QStringLiteral("empresa"));
    EXPECT_EQ(Exec(QStringLiteral("SELECT Nombre FROM clientes"), other.get()),
              (QStringList{"rowset", "row guardado", "end"}));
}

TEST_P(SessionTest, PrintSendsAnInformationalMessage) {
    class InfoSink : public test::RecordingSink {
    public:
        void Info(const ado::ErrorRecord& record) override {
            events << QStringLiteral("info %1 %2").arg(record.sqlState, record.description);
        }
    } sink;
    m_session->Execute(QStringLiteral("PRINT 'Hola, ' + 'mundo' SELECT @@ROWCOUNT"), sink, 0);
    EXPECT_EQ(sink.events, (QStringList{"info 01000 Hola, mundo", "rowset", "row 0", "end"}));
}

TEST_P(SessionTest, SessionSettingsAreRemembered) {
    EXPECT_TRUE(
        Exec(QStringLiteral(
                 "SET XACT_ABORT ON ; SET LANGUAGE Español ; SET DATEFORMAT dmy ; SET DATEFIRST 1"))
            .isEmpty());
    EXPECT_EQ(m_session->Language(), QStringLiteral("Español"));
    EXPECT_EQ(m_session->DateFormat(), QStringLiteral("dmy"));
    EXPECT_EQ(m_session->DateFirst(), 1);
    EXPECT_EQ(
        Value(QStringLiteral("SELECT CAST(ServerProperty('ProductVersion') AS VARCHAR(128))")),
        QStringLiteral("8.00.2039"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SET ROWCOUNT 5")), 102);
    // Options otherwise than the session has them would change answers.
    for (const char* option :
         {"SET ANSI_NULLS OFF", "SET XACT_ABORT OFF", "SET CONCAT_NULL_YIELDS_NULL OFF",
          "SET TRANSACTION ISOLATION LEVEL SERIALIZABLE"})
        EXPECT_EQ(NativeErrorOf(QString::fromLatin1(option)), 102) << option;
    EXPECT_EQ(NativeErrorOf(QStringLiteral("PRINT 'hola' + 1")), 102);
    EXPECT_EQ(NativeErrorOf(QStringLiteral("master.dbo.sp_addlinkedserver [remoto],'SQL Server'")),
              102);
    Exec(QStringLiteral("USE master"));
    EXPECT_EQ(m_session->CurrentDatabase(), QStringLiteral("master"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT * FROM clientes")), 208);
}

TEST_P(SessionTest, DatesAndTheirPartsCompareAsOnSqlServer) {
    Exec(QStringLiteral("SET DATEFORMAT dmy"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre, Alta) VALUES ('a', '20240131 07:05:09')"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre, Alta) VALUES ('b', '01/02/2024')"));
    EXPECT_EQ(
        Value(QStringLiteral(
            "SELECT Nombre FROM clientes WHERE CAST(FLOOR(CAST(Alta AS FLOAT)) AS DATETIME) = "
            "'20240131'")),
        QStringLiteral("a"));
    EXPECT_EQ(
        Value(QStringLiteral("SELECT RIGHT('00'+RTRIM(CAST(DATEPART(hh,Alta) AS CHAR)),2) + ':' + "
                             "RIGHT('00'+RTRIM(CAST(DATEPART(mi,Alta) AS CHAR)),2) + ':' + "
                             "RIGHT('00'+RTRIM(CAST(DATEPART(ss,Alta) AS CHAR)),2) FROM clientes "
                             "WHERE Nombre = 'a'")),
        QStringLiteral("07:05:09"));
    EXPECT_EQ(Value(QStringLiteral(
                  "SELECT count(*) FROM clientes WHERE Alta >= '1/2/2024' AND Alta < '20240202'")),
              QStringLiteral("1"));
    EXPECT_EQ(Value(QStringLiteral("SELECT TOP 1 Nombre FROM clientes ORDER BY Alta DESC")),
              QStringLiteral("b"));
}

TEST_P(SessionTest, IdentityReseedAndTruncate) {
    for (int i = 0; i < 3; ++i)
        Exec(QStringLiteral("INSERT INTO clientes DEFAULT VALUES"));
    Exec(QStringLiteral("DELETE FROM clientes WHERE zolmarID > 1"));
    Exec(QStringLiteral("DBCC CHECKIDENT ('clientes', RESEED, 1)"));
    Exec(QStringLiteral("DBCC DBREINDEX ('empresa.dbo.clientes')"));
    Exec(QStringLiteral("DBCC SHRINKDATABASE (empresa)"));
    Exec(QStringLiteral("INSERT INTO clientes DEFAULT VALUES"));
    EXPECT_EQ(m_session->Identity(), 2);
    Exec(QStringLiteral(
        "SELECT zolmarID FROM clientes WITH (TABLOCKX) WHERE zolmarID > 5 IF @@ROWCOUNT=0 TRUNCATE "
        "TABLE clientes"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes")), QStringLiteral("0"));
    Exec(QStringLiteral("INSERT INTO clientes DEFAULT VALUES"));
    EXPECT_EQ(m_session->Identity(), 1);
}

TEST_P(SessionTest, CatalogTablesDescribeTheSchema) {
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM sysdatabases WHERE name = 'empresa'")),
              QStringLiteral("1"));
    EXPECT_EQ(
        Value(QStringLiteral("SELECT count(*) FROM master..sysdatabases WHERE name = 'nada'")),
        QStringLiteral("0"));
    EXPECT_EQ(
        Exec(QStringLiteral("SELECT name FROM sysobjects WHERE xtype = 'U' AND name = 'clientes'")),
        (QStringList{"rowset", "row clientes", "end"}));
    // PostgreSQL keeps names in lower case.
    const QStringList columns =
        Postgres() ? QStringList{"rowset",          "row nombre|231|80", "row alta|61|8",
                                 "row activo|56|4", "row zolmarid|56|4", "end"}
                   : QStringList{"rowset",          "row Nombre|231|80", "row Alta|61|8",
                                 "row Activo|56|4", "row zolmarID|56|4", "end"};
    EXPECT_EQ(
        Exec(QStringLiteral(
            "SELECT name, xtype, length FROM syscolumns WHERE id = object_id('clientes') ORDER BY "
            "xtype DESC, length DESC, name")),
        columns);
    EXPECT_EQ(
        Value(QStringLiteral(
            "SELECT count(*) FROM syscolumns WHERE id = object_id('clientes') AND name='NOMBRE'")),
        QStringLiteral("1"));
    Exec(QStringLiteral(
        "ALTER TABLE clientes ADD CONSTRAINT clientes_PKEY_zolmarID PRIMARY KEY NONCLUSTERED "
        "(zolmarID) ON [PRIMARY]"));
    Exec(QStringLiteral("CREATE INDEX clientes_nombre ON clientes (Nombre)"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM sysobjects WHERE xtype = 'I'")),
              QStringLiteral("2"));
    const QStringList index =
        Exec(QStringLiteral("EXEC sp_indexes_rowset 'clientes','clientes_PKEY_zolmarID'"));
    ASSERT_EQ(index.size(), 3);
    EXPECT_EQ(index[1].compare(u"row clientes|clientes_PKEY_zolmarID", Qt::CaseInsensitive), 0)
        << index[1].toStdString();
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'clientes','otro'")),
              (QStringList{"rowset", "end"}));
    Exec(QStringLiteral("DROP INDEX clientes.clientes_nombre"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM sysobjects WHERE xtype = 'I'")),
              QStringLiteral("1"));
    Exec(QStringLiteral("ALTER TABLE clientes DROP CONSTRAINT clientes_PKEY_zolmarID"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM sysobjects WHERE xtype = 'I'")),
              QStringLiteral("0"));
    Exec(QStringLiteral("sp_rename 'clientes.[Nombre]', 'Razon', 'COLUMN'"));
    EXPECT_EQ(
        Value(QStringLiteral(
            "SELECT count(*) FROM syscolumns WHERE id = object_id('clientes') AND name='Razon'")),
        QStringLiteral("1"));
}

TEST_P(SessionTest, EngineErrorsCarrySqlServerNumbers) {
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT * FROM nada")), 208);
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT nada FROM clientes")), 207);
    Exec(QStringLiteral(
        "ALTER TABLE clientes ADD CONSTRAINT clientes_PKEY_zolmarID PRIMARY KEY NONCLUSTERED "
        "(zolmarID) ON [PRIMARY]"));
    EXPECT_EQ(
        NativeErrorOf(QStringLiteral("INSERT INTO clientes (zolmarID, Nombre) VALUES (7, 'x')")),
        544);
    Exec(QStringLiteral("SET IDENTITY_INSERT clientes ON"));
    Exec(QStringLiteral("INSERT INTO clientes (zolmarID, Nombre) VALUES (7, 'x')"));
    EXPECT_EQ(
        NativeErrorOf(QStringLiteral("INSERT INTO clientes (zolmarID, Nombre) VALUES (7, 'y')")),
        2627);
    Exec(QStringLiteral("SET IDENTITY_INSERT clientes OFF"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("UPDATE clientes SET Nombre = 'z', zolmarID = 8")),
              8102);
    Exec(QStringLiteral("CREATE UNIQUE INDEX clientes_nombre ON clientes (Nombre)"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('x')")), 2601);
}

// Procedures, functions, triggers and ALTER VIEW are refused by name, before their parameters
// read as undeclared variables; DROP TABLE IF EXISTS and an index's INCLUDE columns work.
TEST_P(SessionTest, ModulesAreRefusedByNameAndIndexesTakeIncludedColumns) {
    for (const char* batch :
         {"CREATE PROCEDURE alta @x INT AS SELECT @x * 2",
          "CREATE FUNCTION doble (@x INT) RETURNS INT AS BEGIN RETURN @x * 2 END",
          "CREATE TRIGGER t_alta ON clientes AFTER INSERT AS PRINT 'x'",
          "ALTER VIEW v AS SELECT 1 AS a"}) {
        try {
            Exec(QString::fromUtf8(batch));
            ADD_FAILURE() << batch;
        } catch (const ado::AdoError& error) {
            EXPECT_EQ(error.Description(), QStringLiteral("Construcción T-SQL no soportada: ") +
                                               QString::fromUtf8(batch).section(u' ', 0, 1))
                << batch;
        }
    }
    Exec(QStringLiteral("CREATE TABLE piezas (a INT, b INT) "
                        "CREATE INDEX piezas_a ON piezas (a) INCLUDE (b) "
                        "INSERT INTO piezas VALUES (1, 2)"));
    EXPECT_EQ(Value(QStringLiteral("SELECT b FROM piezas WHERE a = 1")), QStringLiteral("2"));
    Exec(QStringLiteral("DROP TABLE IF EXISTS piezas DROP TABLE IF EXISTS piezas"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT * FROM piezas")), 208);
}

// A batch is checked whole before it runs: a refused construct anywhere runs none of it. A
// BEGIN ... END block runs as one statement under its IF. A statement that fails on the engine
// leaves the session usable: outside a transaction what ran before it stays (each statement
// commits alone); inside one (XACT_ABORT ON) the transaction is rolled back.
TEST_P(SessionTest, BlocksRunWholeAndFailuresLeaveTheSessionUsable) {
    const QString count = QStringLiteral(
        "SELECT count(*) FROM clientes WHERE Nombre IN ('Bloque', 'Otro', 'Antes', 'Tres', "
        "'Cuatro', 'Cinco')");
    const QString insertTwo = QStringLiteral(
        "IF NOT EXISTS (SELECT * FROM clientes WHERE Nombre = 'Bloque') BEGIN INSERT INTO "
        "clientes (Nombre) VALUES ('Bloque') INSERT INTO clientes (Nombre) VALUES ('Otro') END");
    Exec(insertTwo);
    Exec(insertTwo); // the condition is false now: nothing runs
    EXPECT_EQ(Value(count), "2");

    EXPECT_EQ(NativeErrorOf(QStringLiteral(
                  "INSERT INTO clientes (Nombre) VALUES ('Antes') DECLARE @t TABLE (n INT)")),
              102);
    EXPECT_EQ(Value(count), "2");

    EXPECT_EQ(NativeErrorOf(QStringLiteral(
                  "IF NOT EXISTS (SELECT * FROM clientes WHERE Nombre = 'Tres') BEGIN INSERT INTO "
                  "clientes (Nombre) VALUES ('Tres') INSERT INTO nada (Nombre) VALUES ('x') END")),
              208);
    EXPECT_EQ(Value(count), "3");

    Exec(QStringLiteral("BEGIN TRANSACTION"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Cuatro')"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Cinco') "
                                           "INSERT INTO nada (Nombre) VALUES ('x')")),
              208);
    EXPECT_EQ(Value(QStringLiteral("SELECT @@TRANCOUNT")), "0");
    EXPECT_EQ(Value(count), "3");
}

// Recovery code asks what kind of failure it has, never for the number.
TEST_P(SessionTest, ErrorKindsNameTheMappedFailures) {
    auto recordsOf = [this](const char* batch) {
        try {
            Exec(QString::fromUtf8(batch));
        } catch (const ado::AdoError& error) {
            return error.Records();
        }
        ADD_FAILURE() << "no error: " << batch;
        return std::vector<ado::ErrorRecord>();
    };
    EXPECT_TRUE(ado::IsUnknownObject(recordsOf("SELECT * FROM nada")));
    EXPECT_TRUE(ado::IsUnknownColumn(recordsOf("SELECT nada FROM clientes")));
    Exec(QStringLiteral("CREATE UNIQUE INDEX clientes_nombre ON clientes (Nombre)"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('x')"));
    const auto duplicate = recordsOf("INSERT INTO clientes (Nombre) VALUES ('x')");
    EXPECT_TRUE(ado::IsDuplicateKey(duplicate));
    EXPECT_FALSE(ado::IsUnknownObject(duplicate));
    EXPECT_FALSE(ado::IsLinkLost(duplicate));
    EXPECT_FALSE(ado::IsDeadlock(duplicate));
    EXPECT_FALSE(ado::IsTimeout(duplicate));
}

TEST_P(SessionTest, CrossDatabaseNamesReachTheOtherFile) {
    Exec(QStringLiteral("CREATE DATABASE grupo"));
    Exec(QStringLiteral(
        "CREATE TABLE grupo..locks (zolmarID INT NOT NULL IDENTITY(1,1), tabla NVARCHAR(40))"));
    Exec(QStringLiteral("INSERT INTO grupo..locks (tabla) VALUES ('clientes')"));
    EXPECT_EQ(m_session->Identity(), 1);
    EXPECT_EQ(
        Value(QStringLiteral("SELECT count(*) FROM grupo.dbo.locks WHERE tabla = 'clientes'")),
        QStringLiteral("1"));
    Exec(QStringLiteral("DELETE FROM empresa..clientes"));
    auto other = Open(QStringLiteral("grupo"));
    EXPECT_EQ(Exec(QStringLiteral("SELECT tabla FROM locks"), other.get()),
              (QStringList{"rowset", "row clientes", "end"}));
    other.reset();
    Exec(QStringLiteral(
        "ALTER DATABASE grupo SET AUTO_CLOSE OFF, AUTO_CREATE_STATISTICS OFF, AUTO_SHRINK ON, "
        "AUTO_UPDATE_STATISTICS OFF, RECOVERY SIMPLE"));
    Exec(QStringLiteral("DROP DATABASE grupo"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM sysdatabases WHERE name = 'grupo'")),
              QStringLiteral("0"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT * FROM grupo..locks")), 208);
}

TEST_P(SessionTest, TwoWorkstationsLockRecordsWhileOneHoldsAWriteTransaction) {
    Exec(QStringLiteral("CREATE TABLE locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla "
                        "NVARCHAR(40), id_zolmar INT, "
                        "maquina NVARCHAR(40), pid INT)"));
    auto lockConnection = Open(QStringLiteral("empresa"));

    Exec(QStringLiteral("BEGIN TRANSACTION Grabar"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('en curso')"));

    // The lock connection writes its lock while the first one still holds its write transaction.
    Exec(QStringLiteral("BEGIN TRANSACTION"), lockConnection.get());
    EXPECT_EQ(Exec(QStringLiteral(
                       "SELECT * FROM empresa..locks WITH (TABLOCKX) WHERE tabla = 'clientes' AND "
                       "id_zolmar = 1"),
                   lockConnection.get()),
              (QStringList{"rowset", "end"}));
    Exec(QStringLiteral("INSERT INTO empresa..locks(tabla, id_zolmar, maquina, pid) VALUES "
                        "('clientes',1,'pc1',77)"),
         lockConnection.get());
    Exec(QStringLiteral("COMMIT TRANSACTION"), lockConnection.get());
    EXPECT_EQ(lockConnection->Identity(), 1);

    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM locks WHERE tabla = 'clientes'")),
              QStringLiteral("1"));
    Exec(QStringLiteral("COMMIT TRANSACTION Grabar"));

    // A lock whose process is gone is removed; the emptied table numbers from 1 again.
    Exec(QStringLiteral(
             "IF NOT EXISTS (SELECT hostprocess FROM master..sysprocesses WHERE hostname='pc1' AND "
             "hostprocess=77) DELETE FROM empresa..locks WHERE maquina='pc1' AND PID=77"),
         lockConnection.get());
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM locks")), QStringLiteral("0"));
    Exec(QStringLiteral("SELECT ZolmarID FROM empresa..locks WITH (TABLOCKX) IF @@ROWCOUNT=0 "
                        "TRUNCATE TABLE empresa..locks"),
         lockConnection.get());
    Exec(QStringLiteral("INSERT INTO locks (tabla) VALUES ('otra')"), lockConnection.get());
    EXPECT_EQ(lockConnection->Identity(), 1);
}

TEST_P(SessionTest, AlteredColumnsKeepRowsIndexesIdentityAndBoundDefaults) {
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Ana')"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Luis')"));
    Exec(QStringLiteral("CREATE INDEX clientes_nombre ON clientes(Nombre)"));
    Exec(QStringLiteral("ALTER TABLE clientes ALTER COLUMN Nombre NVARCHAR(60)"));
    EXPECT_EQ(
        Value(QStringLiteral(
            "SELECT length FROM syscolumns WHERE id = object_id('clientes') AND name='Nombre'")),
        QStringLiteral("120"));
    EXPECT_EQ(Exec(QStringLiteral("SELECT Nombre FROM clientes ORDER BY zolmarID")),
              (QStringList{"rowset", "row Ana", "row Luis", "end"}));
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'clientes','clientes_nombre'")).size(),
              3);
    Exec(QStringLiteral("DELETE FROM clientes WHERE zolmarID = 2"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Eva')"));
    EXPECT_EQ(m_session->Identity(), 3);

    Exec(QStringLiteral("CREATE DEFAULT clientes_activo AS 5"));
    Exec(QStringLiteral("EXEC sp_bindefault 'clientes_activo', 'clientes.Activo'"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Pia')"));
    EXPECT_EQ(Value(QStringLiteral("SELECT Activo FROM clientes WHERE Nombre = 'Pia'")),
              QStringLiteral("5"));
    Exec(QStringLiteral("EXEC sp_unbindefault 'clientes.Activo'"));
    EXPECT_THROW(Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Sin')")),
                 ado::AdoError);
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes")), QStringLiteral("3"));
}

// Every statement of the corpus runs on the engine, in order, against the tables made for it,
// and answers what its file expects.
TEST_P(SessionTest, GoldenStatementsRunOnTheEngine) {
    for (const QString& sql : test::GoldenTables())
        Exec(sql);
    for (const test::GoldenCase& golden : test::GoldenCorpus()) {
        const QStringList expected = Postgres() ? golden.postgresResult : golden.sqliteResult;
        const QStringList actual = Outcome(golden.tsql);
        const bool matches =
            expected.size() == actual.size() &&
            std::equal(expected.begin(), expected.end(), actual.begin(), test::ResultLineMatches);
        EXPECT_TRUE(matches) << golden.name.toStdString() << "\nexpected:\n"
                             << expected.join(u'\n').toStdString() << "\nactual:\n"
                             << actual.join(u'\n').toStdString();
    }
    // What the statements left behind.
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes")), QStringLiteral("4"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM locks WHERE usr_zolmar = 2")),
              QStringLiteral("1"));
    // The dictionary's new text took the shared defaults of the columns it left out.
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM idioma WHERE clave = 'MENU' AND "
                                   "revisar = 0 AND traduccion = '' AND tipo = 0")),
              QStringLiteral("1"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM BLOBs")), QStringLiteral("0"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM LogFichas WHERE Fecha = '20240131 "
                                   "10:15:00' AND Tabla = 'clientes' AND ID_Ficha = 5")),
              QStringLiteral("2"));
    // An index is known by its name within its table, though several tables have one so named.
    for (const char* table : {"diccionario", "idioma"})
        EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset '%1','tipo'").arg(table)).size(), 3)
            << table;
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'locks','tabla'")),
              (QStringList{"rowset", "row locks|tabla", "end"}));
}

TEST(SingleFileSession, JetTablesNumberTheirRowsAndKeepLocksInTheSameFile) {
    const test::TemporaryFolder folder;
    TsqlSession session(std::make_unique<ado::SqliteDriver>(ado::SqliteDriver::Layout::SingleFile));
    ado::ConnectParams params;
    params.target = folder.filePath(QStringLiteral("datos.mdb"));
    session.Connect(params);
    RecordingSink sink;
    session.Execute(QStringLiteral("CREATE TABLE articulos (zolmarID AUTOINCREMENT CONSTRAINT "
                                   "articulos_PKEY_zolmarID PRIMARY KEY)"),
                    sink, 0);
    session.Execute(QStringLiteral("ALTER TABLE articulos ADD Precio MONEY NOT NULL DEFAULT 0"),
                    sink, 0);
    session.Execute(
        QStringLiteral("CREATE TABLE locks (ZolmarID AUTOINCREMENT CONSTRAINT locks_PKEY_zolmarID "
                       "PRIMARY KEY, tabla VARCHAR(40))"),
        sink, 0);
    RecordingSink inserts;
    session.Execute(
        QStringLiteral(
            "INSERT INTO articulos (Precio) VALUES (2.5) INSERT INTO locks (tabla) VALUES "
            "('articulos') INSERT INTO articulos DEFAULT VALUES SELECT @@Identity"),
        inserts, 0);
    EXPECT_EQ(inserts.events,
              (QStringList{"count 1", "count 1", "count 1", "rowset", "row 2", "end"}));
    EXPECT_TRUE(QDir(folder.path()).entryList({QStringLiteral("*.sqlite")}).isEmpty());
    session.Disconnect();
}

// The native number and description of the error a statement of the Jet file fails with.
std::pair<std::int32_t, QString> JetFailure(TsqlSession& session, const QString& statement) {
    RecordingSink sink;
    try {
        session.Execute(statement, sink, 0);
    } catch (const ado::AdoError& error) {
        const ado::ErrorRecord& record = error.Records().front();
        return {record.nativeError, record.description};
    }
    return {0, QStringLiteral("no error: ") + statement};
}

TEST(SingleFileSession, JetForeignKeysHoldOnEveryConnectionAndThroughRebuilds) {
    const test::TemporaryFolder folder;
    ado::ConnectParams params;
    params.target = folder.filePath(QStringLiteral("datos.mdb"));
    {
        TsqlSession session(
            std::make_unique<ado::SqliteDriver>(ado::SqliteDriver::Layout::SingleFile));
        session.Connect(params);
        RecordingSink sink;
        session.Execute(QStringLiteral("CREATE TABLE familias (codigo INT PRIMARY KEY, nombre "
                                       "VARCHAR(20)) CREATE TABLE articulos (codigo INT PRIMARY "
                                       "KEY, familia INT CONSTRAINT fk_familia REFERENCES "
                                       "familias (codigo) ON DELETE CASCADE) INSERT INTO familias "
                                       "VALUES (1, 'una') INSERT INTO articulos VALUES (10, 1)"),
                        sink, 0);
        session.Disconnect();
    }
    TsqlSession session(std::make_unique<ado::SqliteDriver>(ado::SqliteDriver::Layout::SingleFile));
    session.Connect(params);
    const auto [native, text] =
        JetFailure(session, QStringLiteral("INSERT INTO articulos VALUES (11, 2)"));
    EXPECT_EQ(native, 547);
    EXPECT_EQ(text, QStringLiteral("Instrucción INSERT en conflicto con la restricción FOREIGN "
                                   "KEY \"fk_familia\". El conflicto ha aparecido en la base de "
                                   "datos \"datos\", tabla \"dbo.familias\", column 'codigo'."))
        << text.toStdString();
    // Made again outside a transaction, the referenced table loses no referring row to the
    // cascade and is still referenced.
    RecordingSink sink;
    session.Execute(QStringLiteral("ALTER TABLE familias ALTER COLUMN nombre VARCHAR(40)"), sink,
                    0);
    EXPECT_EQ(JetFailure(session, QStringLiteral("INSERT INTO articulos VALUES (11, 2)")).first,
              547);
    EXPECT_EQ(JetFailure(session, QStringLiteral("DROP TABLE familias")).first, 3726);
    // Inside a transaction SQLite keeps its keys on: making the table again is refused.
    session.Execute(QStringLiteral("BEGIN TRAN"), sink, 0);
    EXPECT_TRUE(JetFailure(session, QStringLiteral("ALTER TABLE familias ALTER COLUMN nombre "
                                                   "VARCHAR(50)"))
                    .second.startsWith(QStringLiteral("Construcción T-SQL no soportada")));
    session.Execute(QStringLiteral("ROLLBACK"), sink, 0);
    RecordingSink rows;
    session.Execute(QStringLiteral("DELETE FROM familias SELECT COUNT(*) FROM articulos"), rows, 0);
    EXPECT_EQ(rows.events, (QStringList{"count 1", "rowset", "row 0", "end"}));
    session.Disconnect();
}

TEST_P(SessionTest, TextColumnsCompareWithoutCaseAsOnSqlServer) {
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('García')"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('ÁLVAREZ')"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('pérez')"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes WHERE Nombre = 'GARCÍA'")),
              QStringLiteral("1"));
    EXPECT_EQ(Value(QStringLiteral("SELECT zolmarID FROM clientes WHERE Nombre = 'álvarez'")),
              QStringLiteral("2"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes WHERE Nombre LIKE 'PÉ%'")),
              QStringLiteral("1"));
    EXPECT_EQ(Value(QStringLiteral("SELECT TOP 1 Nombre FROM clientes ORDER BY Nombre DESC")),
              QStringLiteral("pérez"));
    // A column whose type changes keeps comparing without case.
    Exec(QStringLiteral("ALTER TABLE clientes ALTER COLUMN Nombre NVARCHAR(60)"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes WHERE Nombre = 'PÉREZ'")),
              QStringLiteral("1"));
    Exec(QStringLiteral("CREATE UNIQUE INDEX clientes_nombre ON clientes (Nombre)"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('GARCÍA')")),
              2601);
}

TEST_P(SessionTest, PlusJoinsTextColumnsAndAddsNumbers) {
    Exec(QStringLiteral("INSERT INTO clientes (Nombre, Activo) VALUES ('Ana', 2)"));
    EXPECT_EQ(Value(QStringLiteral("SELECT Nombre + Nombre FROM clientes")),
              QStringLiteral("AnaAna"));
    EXPECT_EQ(Value(QStringLiteral("SELECT c.Nombre + [Nombre] FROM clientes c")),
              QStringLiteral("AnaAna"));
    EXPECT_EQ(Value(QStringLiteral("SELECT Activo + Activo FROM clientes")), QStringLiteral("4"));
    EXPECT_EQ(Value(QStringLiteral("SELECT Nombre + ' ' + Nombre FROM clientes")),
              QStringLiteral("Ana Ana"));
}

TEST_P(SessionTest, SearchesInsideTextIgnoreCase) {
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Hermanos García')"));
    EXPECT_EQ(Value(QStringLiteral("SELECT CHARINDEX('GARC', Nombre) FROM clientes")),
              QStringLiteral("10"));
    EXPECT_EQ(Value(QStringLiteral("SELECT CHARINDEX('x', Nombre) FROM clientes")),
              QStringLiteral("0"));
    EXPECT_EQ(Value(QStringLiteral("SELECT REPLACE(Nombre, 'Hermanos', 'Hnos.') FROM clientes")),
              QStringLiteral("Hnos. García"));
}

TEST_P(SessionTest, IdentityColumnMayAlsoBeDeclaredThePrimaryKey) {
    Exec(QStringLiteral("CREATE TABLE v (ZolmarID INT NOT NULL IDENTITY(1,1) PRIMARY KEY "
                        "CLUSTERED, n INT DEFAULT (0))"));
    Exec(QStringLiteral("CREATE TABLE w (n INT, ZolmarID INT PRIMARY KEY IDENTITY(1,1))"));
    for (const char* table : {"v", "w"}) {
        Exec(QStringLiteral("INSERT INTO %1 (n) VALUES (7)").arg(table));
        Exec(QStringLiteral("INSERT INTO %1 (n) VALUES (8)").arg(table));
        EXPECT_EQ(Value(QStringLiteral("SELECT @@IDENTITY")), QStringLiteral("2")) << table;
        EXPECT_EQ(Value(QStringLiteral("SELECT sum(n) FROM %1 WHERE ZolmarID = 2").arg(table)),
                  QStringLiteral("8"))
            << table;
    }
    // Still the key: an identity that is taken is refused.
    EXPECT_THROW(Exec(QStringLiteral("INSERT INTO v (ZolmarID, n) VALUES (1, 9)")), ado::AdoError);
}

TEST_P(SessionTest, IdentityStartsAtItsSeed) {
    Exec(QStringLiteral("CREATE TABLE facturas (zolmarID INT NOT NULL IDENTITY(100,1), n INT)"));
    Exec(QStringLiteral("INSERT INTO facturas (n) VALUES (1)"));
    Exec(QStringLiteral("INSERT INTO facturas (n) VALUES (2)"));
    EXPECT_EQ(Value(QStringLiteral("SELECT max(zolmarID) FROM facturas")), QStringLiteral("101"));
    EXPECT_EQ(Value(QStringLiteral("SELECT @@IDENTITY")), QStringLiteral("101"));
    Exec(QStringLiteral("CREATE TABLE pares (zolmarID INT NOT NULL IDENTITY(2,2), n INT)"));
    Exec(QStringLiteral("INSERT INTO pares (n) VALUES (1)"));
    Exec(QStringLiteral("INSERT INTO pares (n) VALUES (1)"));
    EXPECT_EQ(Value(QStringLiteral("SELECT max(zolmarID) FROM pares")), QStringLiteral("4"));
}

TEST_P(SessionTest, LikePatternsMayBeExpressions) {
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Martínez')"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Marta')"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes WHERE Nombre LIKE "
                                   "LEFT(Nombre, 3) + '%' AND Nombre LIKE 'MART' + '%'")),
              QStringLiteral("2"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes c WHERE c.Nombre LIKE "
                                   "c.Nombre")),
              QStringLiteral("2"));
}

// What the schema management sends to make a database and its tables, answered as SQL Server
// answers it.
TEST_P(SessionTest, SchemaStatementsOfDatabasesDefaultsAndIndexes) {
    const QString create = QStringLiteral(
        "IF NOT EXISTS (SELECT name FROM sysdatabases WHERE name = 'grupo') CREATE DATABASE "
        "grupo ON (NAME= grupo, FILENAME= '/datos/grupo.mdf', SIZE=10 MB) COLLATE "
        "Modern_Spanish_CI_AI");
    Exec(create);
    Exec(create); // the database exists: nothing is done
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM sysdatabases WHERE name = 'grupo'")),
              QStringLiteral("1"));
    Exec(QStringLiteral("ALTER DATABASE [grupo] SET OFFLINE"));
    Exec(QStringLiteral("ALTER DATABASE [grupo] SET ONLINE"));
    Exec(QStringLiteral("DBCC SHRINKDATABASE ('grupo')"));
    Exec(QStringLiteral("DROP DATABASE grupo"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM sysdatabases WHERE name = 'grupo'")),
              QStringLiteral("0"));

    // The shared default objects, bound to each new column, fill the rows that leave it out.
    Exec(QStringLiteral("CREATE DEFAULT DEFAULT_CHAR AS ''"));
    Exec(QStringLiteral("CREATE DEFAULT DEFAULT_NUMERIC AS 0"));
    Exec(QStringLiteral("CREATE DEFAULT DEFAULT_DATE AS '17530101'"));
    Exec(QStringLiteral("INSERT INTO clientes(Nombre) VALUES ('Ana')"));
    Exec(QStringLiteral("ALTER TABLE clientes ADD Nota VARCHAR(40)"));
    Exec(QStringLiteral("EXEC sp_bindefault 'DEFAULT_CHAR', 'clientes.Nota'"));
    Exec(QStringLiteral("ALTER TABLE clientes ADD Baja DATETIME"));
    Exec(QStringLiteral("EXEC sp_bindefault 'DEFAULT_DATE', 'clientes.Baja'"));
    Exec(QStringLiteral("ALTER TABLE clientes ADD Saldo MONEY"));
    Exec(QStringLiteral("EXEC sp_bindefault 'DEFAULT_NUMERIC', 'clientes.Saldo'"));
    Exec(QStringLiteral("UPDATE clientes SET Nota=DEFAULT, Baja=DEFAULT, Saldo=DEFAULT WHERE "
                        "(ZolmarID BETWEEN -49999 AND 1)"));
    Exec(QStringLiteral("INSERT INTO clientes(Nombre) VALUES ('Eva')"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes WHERE Nota = '' AND Baja = "
                                   "'17530101' AND Saldo = 0")),
              QStringLiteral("2"));
    // A column changes type between unbinding and binding its default again.
    Exec(QStringLiteral("EXEC sp_unbindefault 'clientes.Nota'"));
    Exec(QStringLiteral("ALTER TABLE clientes ALTER COLUMN Nota VARCHAR(60)"));
    Exec(QStringLiteral("EXEC sp_bindefault 'DEFAULT_CHAR', 'clientes.Nota'"));
    Exec(QStringLiteral("INSERT INTO clientes(Nombre) VALUES ('Pia')"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes WHERE Nota = ''")),
              QStringLiteral("3"));

    // Indexes are named after their column: two tables may each have one of the same name.
    Exec(QStringLiteral("CREATE TABLE proveedores (zolmarID INT NOT NULL IDENTITY(1,1))"));
    Exec(QStringLiteral("ALTER TABLE proveedores ADD Nombre VARCHAR(40)"));
    Exec(QStringLiteral("CREATE INDEX Nombre ON clientes(Nombre)"));
    Exec(QStringLiteral("CREATE INDEX Nombre ON proveedores(Nombre)"));
    Exec(QStringLiteral("CREATE INDEX proveedores ON proveedores(zolmarID)"));
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'proveedores','Nombre'")),
              (QStringList{"rowset", "row proveedores|Nombre", "end"}));
    Exec(QStringLiteral("DROP INDEX clientes.Nombre"));
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'clientes','Nombre'")),
              (QStringList{"rowset", "end"}));
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'proveedores','Nombre'")).size(), 3);
    EXPECT_THROW(Exec(QStringLiteral("CREATE INDEX Nombre ON proveedores(Nombre)")),
                 ado::AdoError); // but one table not two

    // The locks table, which a SQLite server keeps in a file of its own, gets its key and
    // indexes there.
    Exec(QStringLiteral("CREATE TABLE locks (zolmarID INT NOT NULL IDENTITY(1,1))"));
    Exec(QStringLiteral("ALTER TABLE locks ADD CONSTRAINT locks_PKEY_zolmarID PRIMARY KEY "
                        "NONCLUSTERED (zolmarID) ON [PRIMARY]"));
    Exec(QStringLiteral("ALTER TABLE locks ADD tabla VARCHAR(50)"));
    Exec(QStringLiteral("CREATE INDEX tabla ON locks(tabla)"));
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'locks','tabla'")).size(), 3);
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'locks','locks_PKEY_zolmarID'")).size(),
              3);
    Exec(QStringLiteral("DROP INDEX locks.tabla"));
    Exec(QStringLiteral("ALTER TABLE locks DROP CONSTRAINT locks_PKEY_zolmarID"));
    EXPECT_EQ(Exec(QStringLiteral("EXEC sp_indexes_rowset 'locks',''")),
              (QStringList{"rowset", "end"}));
}

// The identity repairs of the record cursor and the statement builder.
TEST_P(SessionTest, IdentityRepairsOfTheRecordCursor) {
    Exec(QStringLiteral("INSERT INTO clientes(Nombre) VALUES ('Ana')"));
    Exec(QStringLiteral("INSERT INTO clientes(Nombre) VALUES ('Luis')"));
    Exec(QStringLiteral("DBCC CHECKIDENT (clientes, RESEED, 7)"));
    EXPECT_EQ(Exec(QStringLiteral("SET NOCOUNT ON INSERT INTO clientes(Nombre,Activo) VALUES "
                                  "('Eva',DEFAULT) SELECT @@Identity  SET NOCOUNT OFF")),
              (QStringList{"rowset", "row 8", "end"}));
    // Without a seed the identity goes up to the highest value the table holds.
    Exec(QStringLiteral("DBCC CHECKIDENT (clientes, RESEED, 0)"));
    Exec(QStringLiteral("DBCC CHECKIDENT (clientes)"));
    Exec(QStringLiteral("INSERT INTO clientes DEFAULT VALUES"));
    EXPECT_EQ(m_session->Identity(), 9);
    Exec(QStringLiteral("DBCC CHECKIDENT (clientes, RESEED, 0)"));
    Exec(QStringLiteral("DBCC CHECKIDENT ('clientes')"));
    Exec(QStringLiteral("INSERT INTO clientes DEFAULT VALUES"));
    EXPECT_EQ(m_session->Identity(), 10);

    // A table of another database is reseeded from inside that database; before its first row
    // the new seed is the next identity itself.
    Exec(QStringLiteral("CREATE DATABASE grupo"));
    Exec(QStringLiteral("CREATE TABLE grupo..facturas (zolmarID INT NOT NULL IDENTITY(1,1), n "
                        "INT)"));
    m_session->UseDatabase(QStringLiteral("grupo"));
    Exec(QStringLiteral("DBCC CHECKIDENT (facturas, RESEED, 4)"));
    m_session->UseDatabase(QStringLiteral("empresa"));
    Exec(QStringLiteral("INSERT INTO grupo..facturas(n) VALUES (1)"));
    EXPECT_EQ(m_session->Identity(), 4);
}

// An identity counting by a step answers the value of each row inserted alone; SQLite, whose
// counter goes by one, refuses an INSERT of several rows into such a table, naming it.
TEST_P(SessionTest, SteppedIdentityOfSeveralRowsInsertsOrIsRefused) {
    Exec(QStringLiteral("CREATE TABLE pasos (id INT IDENTITY(5,5), n INT)"));
    Exec(QStringLiteral("INSERT INTO pasos (n) VALUES (1)"));
    EXPECT_EQ(m_session->Identity(), 5);
    const QString several = QStringLiteral("INSERT INTO pasos (n) SELECT n + 1 FROM pasos");
    if (Postgres()) {
        Exec(several);
        EXPECT_EQ(Column(QStringLiteral("SELECT id FROM pasos ORDER BY id")),
                  (QStringList{"5", "10"}));
        return;
    }
    try {
        Exec(several);
        ADD_FAILURE() << "several rows inserted";
    } catch (const ado::AdoError& error) {
        EXPECT_EQ(error.Description(),
                  QStringLiteral("Construcción T-SQL no soportada: INSERT de varias filas en una "
                                 "tabla con IDENTITY(seed, incremento distinto de 1)"));
    }
    EXPECT_EQ(Column(QStringLiteral("SELECT id FROM pasos")), QStringList{"5"});
}

TEST_P(SessionTest, CatalogListsTheLocksTable) {
    Exec(QStringLiteral("CREATE TABLE locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla "
                        "NVARCHAR(40), id_zolmar INT)"));
    EXPECT_EQ(
        Value(QStringLiteral("SELECT name FROM sysobjects WHERE xtype = 'U' AND name = 'LOCKS'")),
        QStringLiteral("locks"));
    EXPECT_EQ(
        Value(QStringLiteral("SELECT count(*) FROM syscolumns WHERE id = object_id('locks')")),
        QStringLiteral("3"));
    EXPECT_EQ(
        Value(QStringLiteral("SELECT count(*) FROM syscolumns WHERE id = object_id('clientes')")),
        QStringLiteral("4"));
}

TEST_P(SessionTest, DateDefaultZeroIsTheFirstOfJanuary1900) {
    Exec(QStringLiteral("ALTER TABLE clientes ADD Baja DATETIME NOT NULL DEFAULT 0"));
    Exec(QStringLiteral("INSERT INTO clientes (Nombre) VALUES ('Ana')"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM clientes WHERE Baja = '19000101'")),
              QStringLiteral("1"));
}
