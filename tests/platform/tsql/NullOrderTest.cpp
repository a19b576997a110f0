// NULLs sort as on SQL Server on every engine: first in ascending order, last in descending
// order, in each column of ORDER BY and in the order an index keeps.
#include "SessionFixture.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

class NullOrderTest : public test::SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        if (Stopped()) return;
        Exec(QStringLiteral("CREATE TABLE pedidos (ZolmarID INT NOT NULL IDENTITY(1,1), "
                            "Cliente VARCHAR(20) NULL, Importe INT NULL)"));
        Exec(QStringLiteral("INSERT INTO pedidos (Cliente, Importe) VALUES ('Luis', 10)"));
        Exec(QStringLiteral("INSERT INTO pedidos (Cliente, Importe) VALUES (NULL, 20)"));
        Exec(QStringLiteral("INSERT INTO pedidos (Cliente, Importe) VALUES ('Ana', NULL)"));
        Exec(QStringLiteral("INSERT INTO pedidos (Cliente, Importe) VALUES ('Ana', 5)"));
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(NullOrderTest);

TEST_P(NullOrderTest, NullsComeFirstAscendingAndLastDescending) {
    EXPECT_EQ(Column(QStringLiteral("SELECT Cliente FROM pedidos ORDER BY Cliente, ZolmarID")),
              (QStringList{"NULL", "Ana", "Ana", "Luis"}));
    EXPECT_EQ(Column(QStringLiteral("SELECT Importe FROM pedidos ORDER BY Importe DESC")),
              (QStringList{"20", "10", "5", "NULL"}));
    EXPECT_EQ(Value(QStringLiteral("SELECT TOP 1 ZolmarID FROM pedidos ORDER BY Importe")),
              QStringLiteral("3"));
    EXPECT_EQ(Value(QStringLiteral("SELECT TOP 1 ZolmarID FROM pedidos ORDER BY Cliente DESC")),
              QStringLiteral("1"));
    // Each column of the order places its own NULLs; qualified names and aliases alike.
    EXPECT_EQ(Column(QStringLiteral("SELECT p.ZolmarID FROM pedidos p ORDER BY p.Cliente DESC, "
                                    "[Importe] ASC")),
              (QStringList{"1", "3", "4", "2"}));
    EXPECT_EQ(
        Column(QStringLiteral("SELECT Importe * 2 AS doble FROM pedidos ORDER BY doble DESC")),
        (QStringList{"40", "20", "10", "NULL"}));
    EXPECT_EQ(Column(QStringLiteral("SELECT ZolmarID FROM pedidos WHERE ZolmarID IN (SELECT TOP 2 "
                                    "ZolmarID FROM pedidos ORDER BY Importe) ORDER BY ZolmarID")),
              (QStringList{"3", "4"}));
}

TEST_P(NullOrderTest, IndexedColumnsKeepTheSameOrder) {
    Exec(QStringLiteral("CREATE INDEX pedidos_cliente ON pedidos (Cliente, Importe DESC)"));
    EXPECT_EQ(Column(QStringLiteral("SELECT ZolmarID FROM pedidos ORDER BY Cliente, Importe DESC")),
              (QStringList{"2", "4", "3", "1"}));
    EXPECT_EQ(Value(QStringLiteral(
                  "SELECT TOP 1 ZolmarID FROM pedidos WHERE ZolmarID > 1 ORDER BY ZolmarID")),
              QStringLiteral("2"));
}
