// Connection strings: reading the pairs and choosing the engine with its connect target.

#include "platform/ado/ConnectionString.h"

#include <gtest/gtest.h>

namespace zlx::ado {
namespace {

using Engine = ConnectionString::Engine;

TEST(ConnectionStringTest, ServerFormsChooseTheEngine) {
    const ConnectionString sqlite(
        "Provider=SQLOLEDB.1;Persist Security Info=False;Database=master;Server=sqlite:/srv/datos");
    EXPECT_EQ(sqlite.Which(), Engine::SqliteFolder);
    EXPECT_EQ(sqlite.Params({}, {}).target, "/srv/datos");
    EXPECT_EQ(sqlite.Params({}, {}).defaultDatabase, "master");

    const ConnectionString postgres("Provider=SQLOLEDB.1;Database=ventas;"
                                    "Server=postgres:host=127.0.0.1 port=5432 dbname=zlx");
    EXPECT_EQ(postgres.Which(), Engine::Postgres);
    const ConnectParams params = postgres.Params("ana", "s3cr'to");
    EXPECT_EQ(params.target, "host=127.0.0.1 port=5432 dbname=zlx user='ana' password='s3cr\\'to'");
    EXPECT_EQ(params.defaultDatabase, "ventas");

    const ConnectionString sqlServer("Provider=SQLOLEDB.1;Persist Security Info=False;"
                                     "Database=master;Server=OFICINA\\SQL2000");
    EXPECT_EQ(sqlServer.Which(), Engine::Odbc);
    EXPECT_EQ(sqlServer.Params("sa", "a;b").target,
              "Driver=FreeTDS;Server=OFICINA\\SQL2000;Database=master;UID=sa;PWD={a;b}");
}

TEST(ConnectionStringTest, FileProvidersAndUnknownStrings) {
    const ConnectionString jet("Provider=Microsoft.Jet.OLEDB.4.0;Jet OLEDB:Database Locking "
                               "Mode=1;Data Source=/home/ana/gestion.mdb");
    EXPECT_EQ(jet.Which(), Engine::SqliteFile);
    EXPECT_EQ(jet.Params({}, {}).target, "/home/ana/gestion.mdb");
    EXPECT_EQ(jet.Value({"Jet OLEDB:Database Locking Mode"}), "1");

    const ConnectionString fox(
        "Provider=MSDASQL;Driver={Microsoft Visual FoxPro Driver};SourceType=DBF;Deleted=Yes;"
        "Exclusive=No;Null=Yes;Collate=Machine;BackgroundFetch=Yes;SourceDB=/datos/dbf");
    EXPECT_EQ(fox.Which(), Engine::DbfFolder);
    EXPECT_EQ(fox.Params({}, {}).target, "/datos/dbf");
    EXPECT_EQ(fox.Value({"Driver"}), "{Microsoft Visual FoxPro Driver}");

    EXPECT_EQ(
        ConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Extended Properties=EXCEL 8.0").Which(),
        Engine::Workbook);
    EXPECT_EQ(ConnectionString("").Which(), Engine::None);
    EXPECT_EQ(ConnectionString("Provider=SQLOLEDB.1;Database=master;Server=").Which(),
              Engine::None);
}

TEST(ConnectionStringTest, QuotedValuesSynonymsAndStrayPieces) {
    const ConnectionString text(" data source = 'a;b' ; Initial Catalog=\"x\"\"y\" ;garbage;"
                                "User ID=pepe;Password={p}}w};Integrated Security=SSPI");
    EXPECT_EQ(text.Server(), "a;b");
    EXPECT_EQ(text.Database(), "x\"y");
    EXPECT_EQ(text.UserId(), "pepe");
    EXPECT_EQ(text.Password(), "{p}w}");
    EXPECT_EQ(text.Value({"integrated security"}), "SSPI");
    EXPECT_FALSE(text.Has({"garbage"}));
    EXPECT_EQ(text.Value({"Missing"}), "");
}

} // namespace
} // namespace zlx::ado
