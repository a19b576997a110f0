// The PostgreSQL driver reads the columns of one domain over smallint as Booleans: from the
// first rowset of a table on (whose results wait for the batch's end and the look-up of its
// columns), in the order the batch answered them, after a failure in the batch, and again after
// ALTER TABLE adds such a column to a table already read. The columns of a domain over bpchar
// named <name>_<n> read as variable texts of n characters.

#include "RecordingSink.h"
#include "platform/engines/PostgresDriver.h"
#include "support/EngineTest.h"

#include <gtest/gtest.h>

namespace zlx::ado::testing {
namespace {

class PostgresDomainColumnsTest : public zlx::test::EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        m_setup.Connect(Params());
        Run(m_setup, "CREATE DOMAIN pg_temp.flag AS smallint; CREATE TEMP TABLE flags (id integer, "
                     "f pg_temp.flag, n smallint); INSERT INTO flags VALUES (1, 1, 5), (2, 0, 6), "
                     "(3, NULL, 7)");
        Run(m_setup, "CREATE DOMAIN pg_temp.zlx_varchar_12 AS bpchar; CREATE TEMP TABLE texts (v "
                     "pg_temp.zlx_varchar_12, c character(3)); INSERT INTO texts VALUES ('ab  ', "
                     "'x')");
        m_setup.ReadAsBoolean(QStringLiteral("flag"));
    }

    ConnectParams Params() const {
        ConnectParams params;
        params.target = Target();
        return params;
    }

    static RecordingSink Run(PostgresDriver& driver, const char* sql) {
        RecordingSink sink;
        driver.Execute(QString::fromUtf8(sql), sink, 0);
        return sink;
    }

    // Each row's values written out, a Boolean as True or False.
    static QStringList Rows(const RecordedRowset& rowset) {
        QStringList rows;
        for (const auto& row : rowset.rows) {
            QStringList cells;
            for (const Variant& value : row)
                cells << (value.IsNull() ? QStringLiteral("NULL") : value.ToInvariantString());
            rows << cells.join(u'|');
        }
        return rows;
    }

    PostgresDriver m_setup; // its temporary table and domain are its own
};

TEST_P(PostgresDomainColumnsTest, TheDomainsColumnsReadAsBooleansFromTheFirstRowsetOn) {
    for (int pass = 0; pass < 2; ++pass) { // the table looked up, then known
        const RecordingSink sink = Run(m_setup, "SELECT f, n FROM flags ORDER BY id; UPDATE flags "
                                                "SET n = n; SELECT n, f FROM flags WHERE id = 2");
        EXPECT_EQ(sink.events, (QStringList{"rowset 3", "affected 3", "rowset 1"})) << pass;
        ASSERT_EQ(sink.rowsets.size(), 2u);
        EXPECT_EQ(sink.rowsets[0].columns[0].type, adBoolean);
        EXPECT_EQ(sink.rowsets[0].columns[1].type, adSmallInt);
        EXPECT_EQ(Rows(sink.rowsets[0]), (QStringList{"True|5", "False|6", "NULL|7"}));
        EXPECT_EQ(Rows(sink.rowsets[1]), (QStringList{"6|False"}));
    }
    // A number computed from the column is no longer the domain's.
    EXPECT_EQ(Rows(Run(m_setup, "SELECT f + 1 FROM flags WHERE id = 1").rowsets.at(0)),
              QStringList{"2"});
}

TEST_P(PostgresDomainColumnsTest, RowsBeforeAFailureOfTheBatchStillReadAsBooleans) {
    RecordingSink sink;
    EXPECT_THROW(
        m_setup.Execute(QStringLiteral("SELECT f FROM flags WHERE id = 1; SELECT 1 / 0"), sink, 0),
        AdoError);
    ASSERT_EQ(sink.rowsets.size(), 1u);
    EXPECT_EQ(Rows(sink.rowsets[0]), QStringList{"True"});
    EXPECT_EQ(Rows(Run(m_setup, "SELECT f FROM flags WHERE id = 2").rowsets.at(0)),
              QStringList{"False"});
}

TEST_P(PostgresDomainColumnsTest, AColumnAddedToATableAlreadyReadIsLookedUp) {
    Run(m_setup, "SELECT f FROM flags");
    Run(m_setup, "ALTER TABLE flags ADD g pg_temp.flag; UPDATE flags SET g = 1");
    const RecordingSink sink = Run(m_setup, "SELECT g, f FROM flags WHERE id = 1");
    EXPECT_EQ(Rows(sink.rowsets.at(0)), QStringList{"True|True"});
}

TEST_P(PostgresDomainColumnsTest, ATextDomainsColumnsReadAsVariableTextsOfItsLength) {
    const RecordingSink sink = Run(m_setup, "SELECT v, c, max(v), CAST('a' AS bpchar) FROM texts "
                                            "GROUP BY v, c");
    const auto& columns = sink.rowsets.at(0).columns;
    ASSERT_EQ(columns.size(), 4u);
    EXPECT_EQ(columns[0].type, adVarWChar);
    EXPECT_EQ(columns[0].definedSize, 12);
    EXPECT_EQ(columns[1].type, adWChar);
    EXPECT_EQ(columns[1].definedSize, 3);
    // Computed from the column, or without a length, a text of any length.
    EXPECT_EQ(columns[2].type, adLongVarWChar);
    EXPECT_EQ(columns[3].type, adLongVarWChar);
    EXPECT_EQ(Rows(sink.rowsets[0]), QStringList{"ab  |x  |ab  |a"});
}

ZLX_ON_POSTGRES(PostgresDomainColumnsTest);

} // namespace
} // namespace zlx::ado::testing
