#include "QtPrinters.h"
#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "platform/companion/cMatriz.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

// A connection to a single-file database, the provider whose statements run unchanged.
class FileConexion : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dir.isValid());
        QString errors;
        ASSERT_TRUE(m_cn.Init(zlxDataProvider_JET40, m_dir.filePath("datos.db"), {}, {}, {}, 16,
                              false, &errors))
            << errors.toStdString();
        ASSERT_EQ(m_cn.Execute("CREATE TABLE t (ZolmarID INTEGER PRIMARY KEY, nombre TEXT, "
                               "importe DOUBLE, fecha DATETIME)",
                               zlxExecuteReturn_Nothing_NoRowCount)
                      .ToBool(),
                  true);
        ASSERT_EQ(m_cn.GetLastError(), 0);
    }
    QTemporaryDir m_dir;
    RecordingMsgPresenter m_messages;
    ScopedMsgPresenter m_scope{m_messages};
    cConexion m_cn;
};

} // namespace

TEST(cConexion, ConnectionStringsPerProvider) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    cConexion cn;
    int provider = zlxDataProvider_FOX;
    EXPECT_EQ(cn.Connection_String(provider, "/datos"),
              "Provider=MSDASQL;Driver={Microsoft Visual FoxPro Driver};SourceType=DBF;Deleted=Yes;"
              "Exclusive=No;Null=Yes;Collate=Machine;BackgroundFetch=Yes;SourceDB=/datos");
    provider = zlxDataProvider_EXCEL;
    EXPECT_EQ(cn.Connection_String(provider, "/libro.xls"),
              "Provider=Microsoft.Jet.OLEDB.4.0;Extended Properties=EXCEL 8.0");
    provider = zlxDataProvider_MSDE;
    EXPECT_EQ(cn.Connection_String(provider, "", "sqlite:/srv"),
              "Provider=SQLOLEDB.1;Persist Security Info=False;Database=master;Server=sqlite:/srv");
    provider = zlxDataProvider_JET40;
    EXPECT_EQ(cn.Connection_String(provider, "/a.mdb"),
              "Provider=Microsoft.Jet.OLEDB.4.0;Jet OLEDB:Database Locking Mode=1;Data "
              "Source=/a.mdb");
    provider = 9;
    EXPECT_EQ(cn.Connection_String(provider), "");
    EXPECT_TRUE(cn.Init(zlxDataProvider_None));
    EXPECT_EQ(cn.Execute("SELECT 1", zlxExecuteReturn_Value, Variant(7)).ToLong(), 7);
}

TEST(cConexion, UnreachableServerShowsTheNineCauses) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    cConexion cn;
    QString errors;
    EXPECT_FALSE(cn.Init(zlxDataProvider_MSDE, "ventas",
                         "postgres:host=127.0.0.1 port=1 connect_timeout=2", "u", "p", 16, false,
                         &errors));
    EXPECT_EQ(cn.GetLastError(), zlxConexionError_InitBadServer);
    ASSERT_EQ(messages.Messages().size(), 1u);
    EXPECT_EQ(messages.Last().title, "Se ha detectado un error");
    EXPECT_EQ(messages.Last().icon, 32513);
    EXPECT_EQ(messages.Last().buttons, 1);
    EXPECT_TRUE(messages.Last().text.startsWith(
        "Descripción del error:<BR><B>\r\nNo existe el servidor SQL o se ha denegado el acceso"));
    EXPECT_TRUE(messages.Last().text.contains("No pudo conectarse al servidor SQL.<BR>"));
    EXPECT_FALSE(errors.isEmpty());
    messages.Clear();
    EXPECT_FALSE(cn.Init(zlxDataProvider_MSDE, "ventas",
                         "postgres:host=127.0.0.1 port=1 connect_timeout=2", "u", "p", 16, true));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(FileConexion, ReturnModesShapeTheResults) {
    for (const char* row : {"(1, 'ana', 1.5, '2024-03-05 00:00:00')", "(2, 'luis', NULL, NULL)"})
        m_cn.Execute(QStringLiteral("INSERT INTO t VALUES ") + row);
    EXPECT_EQ(
        m_cn.Execute("SELECT nombre FROM t WHERE ZolmarID=2", zlxExecuteReturn_Value).ToString(),
        "luis");
    EXPECT_EQ(
        m_cn.Execute("SELECT importe FROM t WHERE ZolmarID=2", zlxExecuteReturn_Value, Variant(-1))
            .ToLong(),
        -1); // a Null first value keeps the default
    EXPECT_EQ(m_cn.Execute("SELECT nombre FROM t WHERE 0=1", zlxExecuteReturn_Value, Variant("x"))
                  .ToString(),
              "x");
    EXPECT_EQ(m_cn.Execute("SELECT 1", zlxExecuteReturn_Value, Variant(ObjectPtr())).ToString(),
              "1");
    EXPECT_EQ(m_cn.Execute("", zlxExecuteReturn_Value, Variant(5)).ToLong(), 5);

    const auto rows =
        m_cn.Execute("SELECT ZolmarID, nombre FROM t ORDER BY 1", zlxExecuteReturn_Array).ToArray();
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->UBound(1), 1);
    EXPECT_EQ(rows->UBound(2), 1);
    EXPECT_EQ(rows->At(1, 1).ToString(), "luis");

    const auto matrix =
        m_cn.Execute("SELECT ZolmarID, nombre FROM t ORDER BY 1", zlxExecuteReturn_cMatriz)
            .As<cMatriz>();
    ASSERT_NE(matrix, nullptr);
    EXPECT_EQ(matrix->FirstRow(), 0);
    EXPECT_EQ(matrix->GetValue(1, 0).ToString(), "ana");
    EXPECT_TRUE(m_cn.Execute("SELECT 1 WHERE 0=1", zlxExecuteReturn_cMatriz, Variant()).IsEmpty());
    EXPECT_EQ(m_cn.RecCount("t"), 2);
    EXPECT_EQ(m_cn.RecCount("t", "nombre='ana'"), 1);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(FileConexion, InsertAndUpdateFromArraysAndMatrices) {
    EXPECT_EQ(m_cn.Insert(
                  "t", Variant::Array({Variant("ZolmarID"), Variant("nombre"), Variant("importe")}),
                  Variant::Array({Variant(1), Variant("O'Neil"), Variant(2.25)})),
              0);
    EXPECT_EQ(m_cn.RecCount("t"), 1);
    EXPECT_EQ(m_cn.Update("t", 1, Variant::Array({Variant("nombre"), Variant("importe")}),
                          Variant::Array({Variant("Ana"), Variant(3.5)})),
              0);
    EXPECT_EQ(m_cn.Execute("SELECT nombre || '/' || importe FROM t WHERE ZolmarID=1",
                           zlxExecuteReturn_Value)
                  .ToString(),
              "Ana/3.5");
    EXPECT_TRUE(m_messages.Messages().empty());

    // A Null outside SQL Server cannot be written: code 8, then code 7 with the position.
    EXPECT_EQ(m_cn.Insert("t", Variant::Array({Variant("ZolmarID"), Variant("nombre")}),
                          Variant::Array({Variant(500), Variant::Null()})),
              -1);
    ASSERT_EQ(m_messages.Messages().size(), 2u);
    EXPECT_TRUE(
        m_messages.Messages()[0].text.contains("El método 'CadInsert' no admite valores nulos."));
    EXPECT_TRUE(m_messages.Last().text.contains(
        "Valor no permitido en el método 'Insert'.<BR>Posición: (Col.=1) Valor: "));
    EXPECT_EQ(m_cn.Insert("t", Variant("nombre"), Variant::Array({Variant(1)})), -1);
    EXPECT_TRUE(m_messages.Last().text.contains(
        "Parámetro 'xCampos' del método 'Insert' debe ser un 'Array'."));
    EXPECT_EQ(m_cn.RecCount("t"), 1);
}

TEST_F(FileConexion, FailedStatementsLeaveTheErrorStateAndOneMessage) {
    EXPECT_EQ(m_cn.Execute("SELECT * FROM no_existe", zlxExecuteReturn_Value, Variant(9)).ToLong(),
              9);
    EXPECT_EQ(m_cn.GetLastError(), zlxConexionError_ExecuteFailed);
    EXPECT_FALSE(m_cn.GetLastErrorDescription().isEmpty());
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Last().text.contains(
        "Información adicional:<BR><B>Error en el método 'Execute'.\rError nativo SQL="));
    EXPECT_TRUE(m_messages.Last().text.endsWith("SELECT * FROM no_existe\r</B>"));
    EXPECT_TRUE(m_cn.GetSQLErrorMessages().startsWith(
        "El servidor SQL ha retornado el siguiente mensaje:\r\n  #1: Status="));
    m_messages.Clear();
    m_cn.Execute("SELECT * FROM no_existe", zlxExecuteReturn_Value, Variant(9), true);
    EXPECT_TRUE(m_messages.Messages().empty()); // lHideError
    EXPECT_EQ(m_cn.Execute("SELECT 1", zlxExecuteReturn_Value).ToLong(), 1);
    EXPECT_EQ(m_cn.GetLastError(), 0);
    // The connection keeps the last failure's records: ChkError shows and answers them.
    EXPECT_EQ(m_cn.ChkError(), static_cast<std::int32_t>(0x80040E14));
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().title, "Error de ADO");
    EXPECT_TRUE(m_messages.Last().text.startsWith("Error ADO: -2147217900\rDescription: "));
}

TEST_F(FileConexion, TransactionsKeepTheLibraryCount) {
    m_cn.BeginTrans(QString(40, u'x'));
    EXPECT_EQ(m_cn.InternalTransactionCount(), 1);
    m_cn.Execute("INSERT INTO t (ZolmarID) VALUES (1)");
    m_cn.RollBackTrans();
    EXPECT_EQ(m_cn.InternalTransactionCount(), 0);
    EXPECT_EQ(m_cn.RecCount("t"), 0);
    m_cn.CommitTrans();
    EXPECT_EQ(m_cn.InternalTransactionCount(), 0);
    EXPECT_TRUE(
        m_cn.DebugTransactionInfo().contains("    Contador de transacciones de Zolmar=0\r\n"));
}

TEST_F(FileConexion, AsynchronousStatementsWaitWhileTheEventLoopTurns) {
    m_cn.Execute("INSERT INTO t (ZolmarID, nombre) VALUES (1, 'a')");
    EXPECT_TRUE(m_cn.ExecuteAsync("SELECT * FROM t"));
    EXPECT_EQ(m_cn.GetLastError(), 0);
    EXPECT_FALSE(m_cn.ExecuteAsync("SELECT * FROM no_existe", 5));
    EXPECT_EQ(m_cn.GetLastError(), zlxConexionError_ExecuteFailed);
    EXPECT_EQ(m_cn.cn()->CommandTimeout(), 30); // the caller's time-out is back
    m_cn.CancelAsyncOp();
    EXPECT_TRUE(m_messages.Messages().empty());
}
