// CAST(x AS BIT) and casts to date types as columns of a result: of their type (a Boolean, a date)
// whatever their first value, and values of no table, so that a recordset over the query still
// writes back to the table it selects from.
#include "SessionFixture.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

class BitCastTest : public test::SessionFixture {};
// The library's sessions read texts as dates under SET DATEFORMAT dmy.
class DateCastTest : public test::SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        if (!Stopped()) Exec(QStringLiteral("SET DATEFORMAT dmy"));
    }
};

bool FromTable(const ado::ColumnInfo& column) {
    return !column.baseTable.isEmpty() || column.baseTableId != 0;
}

} // namespace

ZLX_ON_SERVER_ENGINES(BitCastTest);
ZLX_ON_SERVER_ENGINES(DateCastTest);

TEST_P(BitCastTest, IsABooleanOfNoTableBesideTheTablesOwnColumns) {
    Exec(QStringLiteral("CREATE TABLE cuentas (id INT, saldo INT)"));
    Exec(QStringLiteral("INSERT INTO cuentas VALUES (1, NULL)"));
    Exec(QStringLiteral("INSERT INTO cuentas VALUES (2, -4)"));
    const auto columns =
        Columns(QStringLiteral("SELECT id, CAST(saldo AS BIT) AS activa FROM cuentas ORDER BY id"))
            .columns;
    ASSERT_EQ(columns.size(), 2u);
    EXPECT_TRUE(FromTable(columns[0]));
    EXPECT_EQ(columns[1].type, ado::adBoolean);
    EXPECT_FALSE(FromTable(columns[1]));
    EXPECT_EQ(Column(QStringLiteral("SELECT CONVERT(BIT, saldo) FROM cuentas ORDER BY id")),
              QStringList({"NULL", "True"}));
}

TEST_P(BitCastTest, ReadsWordsAndNumbersAsAStoredBitDoes) {
    EXPECT_EQ(Value(QStringLiteral("SELECT CAST(' true ' AS BIT), CAST(-0.0 AS BIT), "
                                   "CAST(' 1e-3 ' AS BIT), CONVERT(BIT, 'False')")),
              "True|False|True|False");
    EXPECT_EQ(Outcome(QStringLiteral("SELECT CAST('sí' AS BIT)")), QStringList({"error 245"}));
}

TEST_P(DateCastTest, SelectedCastsAreDatesOfTheirTypeAndOfNoTable) {
    Exec(QStringLiteral("CREATE TABLE visitas (id INT, momento DATETIME)"));
    Exec(QStringLiteral("INSERT INTO visitas VALUES (1, '15/03/2024 18:45:31')"));
    const auto result = Columns(QStringLiteral(
        "SELECT id, CAST(momento AS DATE) AS dia, CONVERT(TIME(0), momento), CAST(momento AS "
        "SMALLDATETIME) corto, CAST('15/03/2024 10:00' AS DATETIME2), CONVERT(DATETIME, "
        "'16/03/2024', 103), GETDATE() FROM visitas"));
    ASSERT_EQ(result.columns.size(), 7u);
    ASSERT_EQ(result.firstRow.size(), 7u);
    EXPECT_TRUE(FromTable(result.columns[0]));
    const ado::DataTypeEnum expected[] = {ado::adDBDate,      ado::adDBTime,
                                          ado::adDBTimeStamp, ado::adDBTimeStamp,
                                          ado::adDBTimeStamp, ado::adDBTimeStamp};
    for (size_t i = 1; i < 7; ++i) {
        EXPECT_EQ(result.columns[i].type, expected[i - 1]) << "column " << i;
        EXPECT_FALSE(FromTable(result.columns[i])) << "column " << i;
        EXPECT_NE(result.firstRow[i].Get<Date>(), nullptr) << "column " << i;
    }
    EXPECT_EQ(result.firstRow[2].ToInvariantString(), u"1899-12-30 18:45:31");
    EXPECT_EQ(result.firstRow[3].ToInvariantString(), u"2024-03-15 18:46:00");
}

// Days added to a date, a date taken from another, the smallest or largest of dates and a CASE
// or COALESCE of them are dates of their type too, not the engine's texts.
TEST_P(DateCastTest, SelectedDateExpressionsAreDatesOfTheirType) {
    Exec(QStringLiteral("CREATE TABLE turnos (dia DATE, alta DATETIME, corto SMALLDATETIME)"));
    Exec(QStringLiteral(
        "INSERT INTO turnos VALUES ('16/03/2024', '15/03/2024 10:00', '17/03/2024 08:00')"));
    const auto result = Columns(QStringLiteral(
        "SELECT alta + 1, alta - 1 AS ayer, MAX(dia) ultimo, MIN(corto), corto + 1, "
        "alta - '14/03/2024', CASE WHEN 1 = 1 THEN alta END, COALESCE(alta, GETDATE()) "
        "FROM turnos GROUP BY alta, corto"));
    ASSERT_EQ(result.firstRow.size(), 8u);
    const ado::DataTypeEnum expected[] = {
        ado::adDBTimeStamp, ado::adDBTimeStamp, ado::adDBDate,      ado::adDBTimeStamp,
        ado::adDBTimeStamp, ado::adDBTimeStamp, ado::adDBTimeStamp, ado::adDBTimeStamp};
    const char* values[] = {"2024-03-16 10:00:00", "2024-03-14 10:00:00", "2024-03-16 00:00:00",
                            "2024-03-17 08:00:00", "2024-03-18 08:00:00", "1900-01-02 10:00:00",
                            "2024-03-15 10:00:00", "2024-03-15 10:00:00"};
    for (size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(result.columns[i].type, expected[i]) << "column " << i;
        ASSERT_NE(result.firstRow[i].Get<Date>(), nullptr) << "column " << i;
        EXPECT_EQ(result.firstRow[i].ToInvariantString(), QString::fromLatin1(values[i]))
            << "column " << i;
    }
}

TEST_P(DateCastTest, DateVariablesReadBackAsTheirType) {
    const auto result = Columns(QStringLiteral(
        "DECLARE @d DATE = '15/03/2024 10:00', @t TIME(0) = '10:30:15.6', @m DATETIME2(3) = "
        "'15/03/2024 10:20:30.1234' SELECT @d, @t, @m"));
    ASSERT_EQ(result.columns.size(), 3u);
    EXPECT_EQ(result.columns[0].type, ado::adDBDate);
    EXPECT_EQ(result.columns[1].type, ado::adDBTime);
    EXPECT_EQ(result.columns[2].type, ado::adDBTimeStamp);
    ASSERT_EQ(result.firstRow.size(), 3u);
    EXPECT_EQ(result.firstRow[0].ToInvariantString(), u"2024-03-15 00:00:00");
    EXPECT_EQ(result.firstRow[1].ToInvariantString(), u"1899-12-30 10:30:16");
    EXPECT_NE(result.firstRow[2].Get<Date>(), nullptr);
}

TEST_P(DateCastTest, AddingMicrosecondsOrNanosecondsIsRefusedByName) {
    for (const char* unit : {"mcs", "ns"}) {
        try {
            Exec(QStringLiteral("SELECT DATEADD(%1, 5, SYSDATETIME())")
                     .arg(QLatin1StringView(unit)));
            ADD_FAILURE() << unit << " added";
        } catch (const ado::AdoError& error) {
            EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14));
            EXPECT_EQ(error.Description(),
                      QStringLiteral("Construcción T-SQL no soportada: DATEADD(%1)")
                          .arg(QLatin1StringView(unit)));
        }
    }
    EXPECT_EQ(Value(QStringLiteral("SELECT DATEPART(ns, CAST('10:20:30.5' AS TIME))")),
              u"500000000");
}
