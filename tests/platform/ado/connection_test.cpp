// A recordset opened on a real connection (SQLite in a temporary folder): the rows, the
// field metadata, the further rowsets of a batch and a detached copy that keeps working.

#include "RecordsetFixture.h"
#include "platform/ado/Connection.h"

#include <QTemporaryDir>

using namespace zlx;
using namespace zlx::ado;
using namespace zlx::ado::testing;

TEST(RecordsetOnConnection, OpensACommandAndDetaches) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    auto connection = std::make_shared<Connection>();
    connection->Open(QStringLiteral("Provider=SQLOLEDB.1;Persist Security Info=False;"
                                    "Database=master;Server=sqlite:") +
                     dir.path());
    long affected = 0;
    connection->Execute("CREATE TABLE clientes (id INTEGER PRIMARY KEY, nombre VARCHAR(30), "
                        "saldo FLOAT)",
                        affected);
    connection->Execute("INSERT INTO clientes VALUES (1, 'García', 10.5), (2, 'López', NULL), "
                        "(3, 'Garrido', 7)",
                        affected);
    const ConnectionLink link = connection->Link();
    Recordset rs;
    rs.SetCursorLocation(adUseClient);
    rs.Open("SELECT id, nombre, saldo FROM clientes ORDER BY id; SELECT COUNT(*) AS n FROM "
            "clientes",
            &link, adOpenStatic, adLockBatchOptimistic);
    ASSERT_EQ(rs.State(), adStateOpen);
    EXPECT_EQ(rs.ActiveConnection(), connection);
    EXPECT_EQ(rs.RecordCount(), 3);
    EXPECT_EQ(rs.GetFields().Item("nombre").Value().ToString(), "García");
    EXPECT_TRUE(rs.GetFields().Item("saldo").OriginalValue().ToDouble() == 10.5);
    rs.SetFilter(Variant("nombre LIKE 'gar*'"));
    EXPECT_EQ(Codes(rs, "id"), (std::vector<int>{1, 3}));
    rs.SetFilter(Variant("saldo = Null"));
    EXPECT_EQ(Codes(rs, "id"), (std::vector<int>{2}));
    rs.SetFilter(Variant());

    rs.DetachConnection();
    EXPECT_EQ(rs.ActiveConnection(), nullptr);
    rs.Update(Variant("nombre"), Variant("Otro"));
    auto check = connection->Execute(
        QStringLiteral("SELECT COUNT(*) FROM clientes WHERE nombre = 'Otro'"), affected);
    ASSERT_TRUE(check);
    EXPECT_EQ(check->GetFields().Item(0).Value().ToLong(), 0);

    auto second = rs.NextRecordset();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->GetFields().Item("n").Value().ToLong(), 3);
}
