// CAST(x AS BIT) as a column of a result: a Boolean whatever its first value, and a value of no
// table, so that a recordset over the query still writes back to the table it selects from.
#include "SessionFixture.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

// The columns of the first rowset of a batch, as the driver described them.
class ColumnsSink : public test::RecordingSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>& described) override {
        if (columns.empty()) columns = described;
        RecordingSink::BeginRowset(described);
    }
    std::vector<ado::ColumnInfo> columns;
};

class BitCastTest : public test::SessionFixture {
protected:
    std::vector<ado::ColumnInfo> Columns(const QString& query) {
        ColumnsSink sink;
        m_session->Execute(query, sink, 0);
        return sink.columns;
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(BitCastTest);

TEST_P(BitCastTest, IsABooleanOfNoTableBesideTheTablesOwnColumns) {
    Exec(QStringLiteral("CREATE TABLE cuentas (id INT, saldo INT)"));
    Exec(QStringLiteral("INSERT INTO cuentas VALUES (1, NULL)"));
    Exec(QStringLiteral("INSERT INTO cuentas VALUES (2, -4)"));
    const auto columns =
        Columns(QStringLiteral("SELECT id, CAST(saldo AS BIT) AS activa FROM cuentas ORDER BY id"));
    ASSERT_EQ(columns.size(), 2u);
    const auto fromTable = [](const ado::ColumnInfo& c) {
        return !c.baseTable.isEmpty() || c.baseTableId != 0;
    };
    EXPECT_TRUE(fromTable(columns[0]));
    EXPECT_EQ(columns[1].type, ado::adBoolean);
    EXPECT_FALSE(fromTable(columns[1]));
    EXPECT_EQ(Column(QStringLiteral("SELECT CONVERT(BIT, saldo) FROM cuentas ORDER BY id")),
              QStringList({"NULL", "True"}));
}

TEST_P(BitCastTest, ReadsWordsAndNumbersAsAStoredBitDoes) {
    EXPECT_EQ(Value(QStringLiteral("SELECT CAST(' true ' AS BIT), CAST(-0.0 AS BIT), "
                                   "CAST(' 1e-3 ' AS BIT), CONVERT(BIT, 'False')")),
              "True|False|True|False");
    EXPECT_EQ(Outcome(QStringLiteral("SELECT CAST('sí' AS BIT)")), QStringList({"error 245"}));
}
