// ODBC mode: the file's folder through the FoxPro provider, statements passed through, and
// the same file open again in RAW mode afterwards.

#include "DbfTestFiles.h"
#include "connection/cConexion.h"
#include "dbf/cDBF.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace zlx {
namespace {

class cDBFOdbc : public testing::Test {
protected:
    void SetUp() override {
        path = test::ScratchPath(QStringLiteral("odbcsocios.dbf"));
        QString c = "C", n = "N";
        ASSERT_TRUE(dbf.BeginCreateDBF(path));
        dbf.CreateColumn("NOMBRE", c, 10);
        dbf.CreateColumn("SALDO", n, 8, 2);
        ASSERT_TRUE(dbf.EndCreateDBF());
        dbf.BeginInsert();
        dbf.Field("NOMBRE", QStringLiteral("Ana"));
        dbf.Field("SALDO", 10.25);
        ASSERT_TRUE(dbf.EndInsert());
        dbf.CloseDBF();
    }

    QString path;
    cDBF dbf;
    RecordingMsgPresenter presenter;
    ScopedMsgPresenter scope{presenter};
};

TEST_F(cDBFOdbc, StatementsRunOnTheFileThroughTheFoxProConnection) {
    ASSERT_TRUE(dbf.OpenODBC(path));
    ASSERT_TRUE(dbf.oCnFox());
    EXPECT_EQ(dbf.oCnFox()->nDBProvider(), zlxDataProvider_FOX);
    EXPECT_EQ(dbf.Execute("INSERT INTO odbcsocios VALUES ('Bruno', 4.5)").ToBool(), true);
    EXPECT_EQ(dbf.Execute("UPDATE odbcsocios SET saldo = saldo * 2 WHERE nombre = 'Ana'").ToBool(),
              true);
    EXPECT_DOUBLE_EQ(dbf.Execute("SELECT SUM(saldo) FROM odbcsocios", 2).ToDouble(), 25.0);
    EXPECT_EQ(dbf.Execute("SELECT nombre FROM odbcsocios WHERE saldo < 5", 2).ToString(), "Bruno");
    EXPECT_EQ(dbf.Execute("SELECT COUNT(*) FROM nada", 2, std::int32_t(-1), true).ToLong(), -1);
    EXPECT_TRUE(presenter.Messages().empty());

    dbf.CloseDBF();
    EXPECT_FALSE(dbf.oCnFox());
    ASSERT_TRUE(dbf.OpenRaw(path));
    ASSERT_EQ(dbf.RecordCount(), 2);
    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.Field("NOMBRE").ToString(), QStringLiteral("Bruno     "));
    dbf.CurrentRow(1);
    EXPECT_DOUBLE_EQ(dbf.Field("SALDO").ToDouble(), 20.5);
}

TEST_F(cDBFOdbc, AFolderThatIsNotThereFailsTheOpening) {
    const QString missing = QFileInfo(path).absolutePath() + QStringLiteral("/no-hay/x.dbf");
    EXPECT_FALSE(dbf.OpenODBC(missing));
    EXPECT_FALSE(dbf.oCnFox());
    EXPECT_FALSE(presenter.Messages().empty());
    EXPECT_EQ(dbf.Execute("SELECT 1", 2, std::int32_t(7)).ToLong(), 7);
}

} // namespace
} // namespace zlx
