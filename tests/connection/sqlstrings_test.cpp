#include "QtPrinters.h"
#include "connection/cSQLStrings.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace zlx;

TEST(cSQLStrings, InsertsLeaveEmptyValuesToTheirDefaults) {
    cSQLStrings sql;
    sql.BeginInsert(nullptr, "clientes", false);
    sql.AddField("nombre", Variant("O'Neil   "));
    sql.AddField("codigo", Variant(0));
    sql.AddField("edad", Variant(300), false, 0, true, zlxTblColumnTypeI1);
    sql.AddField("nivel", Variant(200), false, 0, true, zlxTblColumnTypeI1);
    sql.AddField("alta", Variant(BlankDate()));
    sql.AddField("baja", Variant(MakeDate(2024, 3, 5, 10, 0, 0)));
    sql.AddField("nota", Variant(""));
    sql.AddField("vip", Variant(false));
    sql.AddField("socio", Variant(true));
    sql.AddField("importe", Variant(12.5));
    sql.AddField("total", Variant("importe * 2"), true);
    sql.AddField("ciudad", Variant("Barcelona"), false, 3);
    sql.RecordStatus(0);
    EXPECT_EQ(sql.EndStr(), "INSERT INTO clientes (nombre,nivel,baja,socio,importe,total,ciudad) "
                            "VALUES ('O''Neil',200,'05/03/2024 10:00:00',-1,12.5,importe * 2,"
                            "'Bar')");
    sql.BeginInsert(nullptr, "clientes");
    sql.AddField("codigo", Variant::Null());
    EXPECT_EQ(sql.EndStr(), "SET NOCOUNT ON ; INSERT INTO clientes DEFAULT VALUES ; SELECT "
                            "@@Identity ; SET NOCOUNT OFF");
}

TEST(cSQLStrings, UpdatesTakeEveryFieldUnlessAsked) {
    cSQLStrings sql;
    sql.BeginUpdate(nullptr, "t", "25");
    sql.AddField("nombre", Variant(""));
    sql.AddField("vip", Variant(false));
    sql.AddField("codigo", Variant(0), false, 0, false);
    sql.RecordStatus(2);
    EXPECT_EQ(sql.EndStr(), "UPDATE t SET nombre='',vip=0,Activo=2 WHERE ZolmarID = 25");
    for (const char* filter : {"0", "-3", "codigo=25", "25.0"}) {
        sql.BeginUpdate(nullptr, "t", filter);
        sql.AddField("a", Variant(1));
        EXPECT_EQ(sql.EndStr(), QStringLiteral("UPDATE t SET a=1 WHERE ") + filter);
    }
    sql.BeginUpdate(nullptr, "t", "");
    sql.AddField("a", Variant(1));
    EXPECT_EQ(sql.EndStr(), "UPDATE t SET a=1");
    sql.BeginUpdate(nullptr, "t", "1");
    EXPECT_EQ(sql.EndStr(), "");
    EXPECT_EQ(sql.Execute().ToBool(), false); // nothing to run
}

TEST(cSQLStrings, ExecutesOnTheConnection) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    QTemporaryDir dir;
    auto cn = std::make_shared<cConexion>();
    ASSERT_TRUE(cn->Init(zlxDataProvider_JET40, dir.filePath("d.db")));
    cn->Execute("CREATE TABLE t (ZolmarID INTEGER PRIMARY KEY, nombre TEXT, Activo INT DEFAULT 0)");
    cSQLStrings sql;
    sql.BeginInsert(cn, "t", false);
    sql.AddField("ZolmarID", Variant(7));
    sql.AddField("nombre", Variant("ana"));
    EXPECT_TRUE(sql.Execute().ToBool());
    sql.BeginUpdate(cn, "t", "7");
    sql.RecordStatus(1);
    EXPECT_TRUE(sql.Execute(zlxExecuteReturn_Nothing_NoRowCount).ToBool());
    EXPECT_EQ(
        cn->Execute("SELECT nombre || Activo FROM t WHERE ZolmarID = 7", zlxExecuteReturn_Value)
            .ToString(),
        "ana1");
    EXPECT_TRUE(messages.Messages().empty());
}
