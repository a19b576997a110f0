#include "QtPrinters.h"
#include "connection/cSQLStrings.h"
#include "support/ServerDatabaseTest.h"

using namespace zlx;

namespace {

class ConexionFaults : public test::ServerDatabaseTest {
protected:
    ConexionFaults() : ServerDatabaseTest("faults") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), codigo INT, nombre VARCHAR(40))");
        Run("CREATE TABLE u (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(40))");
        Run("INSERT INTO t (codigo, nombre) VALUES (1, 'uno')");
    }
    const QString& LastText() const { return m_messages.Last().text; }
};

} // namespace

TEST_P(ConexionFaults, ASuccessClearsTheErrorStateAndTheBuilderRepairsOnlyItsOwnFailure) {
    Run("CREATE TABLE k (codigo INT NOT NULL PRIMARY KEY)");
    Run("INSERT INTO k (codigo) VALUES (1)");
    const auto duplicateKey = [&] {
        m_cn->Execute("INSERT INTO k (codigo) VALUES (1)", 0, Variant(0), true);
        ASSERT_EQ(m_cn->GetLastSQLNativeError(), 2627);
        ASSERT_EQ(m_cn->GetLastError(), zlxConexionError_ExecuteFailed);
    };
    duplicateKey();
    // A statement that succeeds leaves no trace of the earlier failure...
    EXPECT_EQ(m_cn->Execute("SELECT count(*) FROM t", zlxExecuteReturn_Value).ToLong(), 1);
    EXPECT_EQ(m_cn->GetLastError(), 0);
    EXPECT_EQ(m_cn->GetLastSQLNativeError(), 0);
    EXPECT_EQ(m_cn->GetLastErrorDescription(), "");

    // ...so an insert that follows a duplicate key elsewhere runs exactly once.
    duplicateKey();
    cSQLStrings sql;
    sql.BeginInsert(m_cn, "u", false);
    sql.AddField("nombre", Variant("una vez"));
    EXPECT_TRUE(sql.Execute().ToBool());
    EXPECT_EQ(m_cn->RecCount("u"), 1);

    // Its own duplicate key, after identities were set back, is repaired and run again.
    Run("CREATE TABLE v (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(9))");
    Run("ALTER TABLE v ADD CONSTRAINT pk_v PRIMARY KEY (ZolmarID)");
    Run("INSERT INTO v (nombre) VALUES ('a')");
    Run("INSERT INTO v (nombre) VALUES ('b')");
    Run("DBCC CHECKIDENT ('v', RESEED, 0)");
    sql.BeginInsert(m_cn, "v");
    sql.AddField("nombre", Variant("c"));
    EXPECT_EQ(sql.Execute(zlxExecuteReturn_Value, Variant(0), true).ToLong(), 3);
    EXPECT_EQ(m_cn->RecCount("v"), 3);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(ConexionFaults, AHiddenTimeOutOfARecordsetIsRetriedOnce) {
    m_cn->cn()->CommandTimeout(1);
    ado::RecordsetPtr rs;
    // Retried with 2 seconds, then given up: never waited out with ever longer time-outs.
    EXPECT_EQ(
        m_cn->Open_RecordSet(rs, "WAITFOR DELAY '00:00:05' SELECT 1 AS uno", 3, 1, 3, 3, "", true),
        -1);
    EXPECT_EQ(m_cn->cn()->CommandTimeout(), 1);
    EXPECT_TRUE(m_messages.Messages().empty());
    m_cn->cn()->CommandTimeout(30);
    EXPECT_EQ(m_cn->Open_RecordSet(rs, "SELECT nombre FROM t"), 0);
    EXPECT_EQ(rs->GetFields().Item("nombre").Value().ToString(), "uno");
}

TEST_P(ConexionFaults, AValueAskedOfAStatementWithoutRecordsTellsTheRecordsetIsClosed) {
    EXPECT_EQ(
        m_cn->Execute("UPDATE t SET nombre = 'dos'", zlxExecuteReturn_Value, Variant(-4)).ToLong(),
        -4);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(LastText().endsWith("Información adicional:<BR><B>Error en el método "
                                    "'Execute'.\rEl objeto 'recordset' está cerrado.\r"
                                    "Instrucción SQL=\rUPDATE t SET nombre = 'dos'</B>"))
        << LastText().toStdString();
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_ExecuteFailed);
    EXPECT_EQ(m_cn->Execute("SELECT nombre FROM t", zlxExecuteReturn_Value).ToString(), "dos");
    m_messages.Clear();
    m_cn->Execute("UPDATE t SET nombre = 'tres'", zlxExecuteReturn_Value, Variant(-4), true);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(ConexionFaults, TheMessagesOfTheArrayMethodsShowTheRealErrorNumber) {
    const auto failsWith = [&](const char* info) {
        ASSERT_FALSE(m_messages.Messages().empty());
        const QString number = QString::number(m_cn->cn()->GetErrors().Item(0).number);
        EXPECT_NE(number, "0");
        EXPECT_TRUE(LastText().contains("<BR>Código del error: " + number + "<BR>"))
            << LastText().toStdString();
        EXPECT_TRUE(LastText().endsWith(QString::fromUtf8(info) + "</B>"));
        EXPECT_EQ(m_cn->GetLastSQLNativeError(), 208);
        m_messages.Clear();
    };
    EXPECT_EQ(m_cn->RecCount("no_existe"), -1);
    failsWith("Error en el método 'RecCount'.");
    EXPECT_EQ(m_cn->ValorMasAlto("no_existe", "ZolmarID"), 0);
    failsWith("Error en el método 'ValorMasAlto'.");
    EXPECT_EQ(m_cn->Update("no_existe", 1, Variant("nombre"), Variant("x")), -1);
    failsWith("Error en el método 'Update'.");

    // Several names with one value: a type mismatch, reported, nothing thrown.
    EXPECT_EQ(
        m_cn->Update("t", 1, Variant::Array({Variant("codigo"), Variant("nombre")}), Variant("x")),
        -1);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(LastText().contains("<BR>Código del error: 13<BR>"));
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_GenericErr);
    EXPECT_EQ(m_cn->Execute("SELECT nombre FROM t", zlxExecuteReturn_Value).ToString(), "uno");
}

ZLX_ON_SERVER_ENGINES(ConexionFaults);
